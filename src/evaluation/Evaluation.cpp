#include "evaluation/Evaluation.h"

#include "core/Messages.h"
#include "database/Connection.h"
#include "evaluation/InconsistencyReport.h"
#include "evaluation/LocalWeights.h"
#include "evaluation/Synthesis.h"
#include "rounds/EvaluatorRound.h"
#include "rounds/RoundSelection.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

// Whatever keeps the report from being printed, the weights are there.
void report(Output& output, const ProblemRound& of, const InconsistencyList& findings) {
    try {
        printInconsistencyReport(output, of, findings);
    } catch (const RuntimeError& error) {
        throw RuntimeError(ErrorCode{error.number()},
                           error.description() + u"\n\n評価値は保存されています。"_s);
    }
}

} // namespace

bool evaluate(Output& output, const RoundSelection& chosen, const WorkOptions& /*options*/,
              const Progress& progress) {
    const auto compared = [&chosen](qint32 evaluatorNo) {
        return hasComparisons(evaluatorRound(chosen, evaluatorNo));
    };
    if (!allHave(chosen, compared, u"比較回数"_s, u"一対比較"_s)) return false;

    InconsistencyList findings;
    const auto steps = 2 * static_cast<int>(chosen.evaluators.size());
    int step = 0;
    for (const auto& evaluator : chosen.evaluators) {
        progress(step++, steps, evaluator.entry);
        calculateLocalWeights(evaluatorRound(chosen, evaluator.number), findings);
    }
    for (const auto& evaluator : chosen.evaluators) {
        progress(step++, steps, evaluator.entry);
        synthesise(evaluatorRound(chosen, evaluator.number));
    }
    progress(steps, steps, {});
    chosen.connection.endUnitOfWork(); // a report is handed out only of weights that are on the disk
    report(output, chosen, findings);
    Common::inform(u" 評価値計算終了"_s);
    return true;
}
