// hollin-figures: draws the figures for hollin-batch. A program of its own, since the plotting library draws
// with widgets, and hollin-batch links none.
#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>

#include "core/Actions.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "figures/PrintFigures.h"
#include "files/ApplicationDirectory.h"
#include "files/TextFile.h"
#include "printing/Output.h"
#include "text/Fonts.h"
#include "text/StandardTexts.h"

using namespace Qt::StringLiterals;

namespace {

// Problem, round, and the evaluator who stands out, if any.
bool printAll(const QStringList& arguments) {
    bool printed = false;
    const bool completed = runAction(u"図"_s, [&] {
        Common::openDatabase(applicationDirectory());
        Output output(Printer::ofProgram());
        output.load(Common::AppDir);
        output.makePdfFilesOnly();
        Common::MsgTitle = u"図"_s;
        const RoundSelection chosen{
            {*Common::DbConn, Value(arguments.value(0)).toLong(), Value(arguments.value(1)).toInteger()},
            {},
            {},
            chosenEvaluators(arguments.size() > 2 ? QStringList{arguments[2] + u':'} : QStringList())};
        printed = PrintFigures(output, chosen, [](int, int, const QString&) {});
    });
    return completed && printed;
}

} // namespace

int main(int argc, char* argv[]) {
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) {}); // the toolkit's chatter
    qputenv("QT_QPA_PLATFORM", "offscreen");                          // no display is needed
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"hollin-figures"_s);
    installFontSubstitutions();
    installStandardTexts();

    QCommandLineParser parser;
    parser.setApplicationDescription(u"hollin-batch --figures が図を描くために使います。"_s);
    parser.addOption({u"directory"_s, u"DB と file のあるフォルダー"_s, u"DIR"_s});
    parser.addPositionalArgument(u"PROBLEM ROUND [EVALUATOR]"_s,
                                 u"課題番号、比較回数、目立たせる評価者番号"_s);
    parser.process(application);
    if (parser.isSet(u"directory"_s)) setApplicationDirectory(parser.value(u"directory"_s));
    Common::Presenter = consolePresenter();
    Printer::ofProgram().onDocument(
        [](const QString& path) { QTextStream(stdout) << nativePath(path) << Qt::endl; });
    const bool printed = printAll(parser.positionalArguments());
    Common::DbConn.reset();
    return printed ? 0 : 1;
}
