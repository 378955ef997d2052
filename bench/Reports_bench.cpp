// What the pages of the reports cost, and the way from the start of the program to the first menu.
#include <QApplication>

#include "Measured.h"
#include "analysis/GroupReport.h"
#include "core/Common.h"
#include "core/Screens.h"
#include "evaluation/IndividualResult.h"
#include "files/ApplicationDirectory.h"
#include "printing/Output.h"
#include "rounds/RoundEntries.h"

using namespace Qt::StringLiterals;

namespace {

// The document of the first evaluator.
void report(benchmark::State& state, decltype(Work::run) work) {
    const WorkloadDirectory directory(static_cast<int>(state.range(0)));
    directory.calculate();
    Output output(Printer::ofProgram());
    output.load(Common::AppDir);
    output.ToggleOutputTarget(); // documents are PDF
    const QString problem = problemEntries(*Common::DbConn).first();
    const auto entries = evaluatorEntries(*Common::DbConn, entryNumber(problem));
    const RoundSelection chosen{directory.round(), problem, QString::number(Workload::round),
                                chosenEvaluators(entries.first(1))};
    bool printed = true;
    for (const auto& step : state) {
        static_cast<void>(step);
        printed = printed && work(output, chosen, {}, [](int, int, const QString&) {});
    }
    if (!printed) state.SkipWithError("nothing was printed");
}

void individualReport(benchmark::State& state) {
    report(state, PrintIndividualResult);
}

void groupReport(benchmark::State& state) {
    report(state, MakeGroupReport);
}

// The menu opens the database and is painted.
void startToMenu(benchmark::State& state) {
    const WorkloadDirectory directory(static_cast<int>(state.range(0)));
    setApplicationDirectory(directory.path());
    for (const auto& step : state) {
        static_cast<void>(step);
        Common::Forms.show(u"メニュー"_s);
        QApplication::processEvents();
        state.PauseTiming();
        Common::Forms.unloadAll();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(individualReport)->Apply(numbers<10, Workload::mostEvaluators>);
BENCHMARK(groupReport)->Apply(numbers<10, Workload::mostEvaluators>);
BENCHMARK(startToMenu)->Apply(numbers<10, Workload::mostEvaluators>);
