// Runs the measurements without a display. HOLLIN_BENCH_QUICK in the environment: each once, with the
// smallest numbers.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "ScreenTable.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/Screens.h"
#include "text/Fonts.h"

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    installFontSubstitutions();
    Common::Presenter = [](const QString&, const QString&, MessageStyle) { return MessageAnswer::Yes; };
    fillScreenTable(Common::Forms);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    Common::Forms.unloadAll();
    Common::DbConn.reset();
}
