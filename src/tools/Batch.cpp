// hollin-batch: the work of the calculation and report screens from a script.
#include <QCommandLineParser>
#include <QGuiApplication>
#include <QTextStream>
#include <algorithm>
#include <array>

#include "analysis/AnalysisOutput.h"
#include "analysis/FinalResult.h"
#include "analysis/GroupReport.h"
#include "core/Actions.h"
#include "core/Common.h"
#include "evaluation/Evaluation.h"
#include "evaluation/IndividualResult.h"
#include "output/PrintService.h"
#include "platform/ApplicationDirectory.h"
#include "platform/Fonts.h"
#include "platform/StandardTexts.h"
#include "platform/TextFile.h"

using namespace Qt::StringLiterals;

namespace {

enum ExitCode { done = 0, failed = 1, wrongUsage = 2 };

using Work = bool (*)(PrintService&, const ReportSelection&, const Progress&);

// What can be asked for, in the order in which a round is worked through: the option and its value.
struct Action {
    QString option;
    QString screen;
    Work work;
};

const std::array actions{
    Action{u"calculate"_s, u"評価計算"_s, evaluate},
    Action{u"print"_s, u"個人結果"_s,
           [](PrintService& print, const ReportSelection& selection, const Progress& progress) {
               return PrintIndividualResult(print, selection, true, progress);
           }},
    Action{u"print"_s, u"報告作成"_s, MakeGroupReport},
    Action{u"print"_s, u"分析出力"_s, PrintAnalysis},
    Action{u"coefficients"_s, u"最終結果"_s, SetCoefficients},
};

struct Request {
    QString problemNo;
    QString round;
    QStringList evaluators;
    QList<const Action*> actions;
};

void print(FILE* stream, const QString& line) {
    QTextStream(stream) << line << Qt::endl;
}

void tellFile(const QString& path) {
    print(stdout, nativePath(path));
}

void addOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(u"課題の評価計算、報告書の作成、係数の設定をまとめて行います。"_s);
    parser.addHelpOption();
    parser.addPositionalArgument(u"PROBLEM"_s, u"課題番号"_s);
    parser.addOptions({
        {u"directory"_s, u"DB と file のあるフォルダー（既定: プログラムのフォルダー）"_s, u"DIR"_s},
        {u"round"_s, u"比較回数（既定: 課題の比較回数）"_s, u"N"_s},
        {u"evaluator"_s, u"評価者番号。何回でも指定できます（既定: 課題評価者の全員）"_s, u"N"_s},
        {u"calculate"_s, u"評価計算を行います"_s},
        {u"print"_s, u"個人結果、報告作成、分析出力のいずれかを PDF に出力します"_s, u"SCREEN"_s},
        {u"coefficients"_s, u"最終結果の係数を設定し、CSV ファイルに書き出します"_s},
    });
}

bool isAsked(const QCommandLineParser& parser, const Action& action) {
    return action.option == u"print" ? parser.values(u"print"_s).contains(action.screen)
                                     : parser.isSet(action.option);
}

// What is wrong with the command line, or nothing.
QString usageError(const QCommandLineParser& parser) {
    if (!parser.errorText().isEmpty()) return parser.errorText();
    if (parser.positionalArguments().size() != 1) return u"課題番号を一つ指定してください。"_s;
    for (const auto& number :
         parser.positionalArguments() + parser.values(u"evaluator"_s) + parser.values(u"round"_s)) {
        bool isNumber = false;
        number.toInt(&isNumber);
        if (!isNumber) return u"「%1」は番号ではありません。"_s.arg(number);
    }
    for (const auto& screen : parser.values(u"print"_s))
        if (std::ranges::none_of(actions, [&](const Action& action) {
                return action.option == u"print" && action.screen == screen;
            }))
            return u"「%1」という報告書はありません。"_s.arg(screen);
    return {};
}

Request requestOf(const QCommandLineParser& parser) {
    Request request{parser.positionalArguments().constFirst(),
                    parser.value(u"round"_s),
                    parser.values(u"evaluator"_s),
                    {}};
    for (const auto& action : actions)
        if (isAsked(parser, action)) request.actions << &action;
    if (request.actions.isEmpty())
        for (const auto& action : actions) request.actions << &action;
    return request;
}

// The entry of the number among those offered. Raises error 5 when it is not among them.
QString entryOf(const QStringList& offered, const QString& number, const QString& what) {
    for (const auto& entry : offered)
        if (entryNumber(entry).toInt() == number.toInt()) return entry;
    throw RuntimeError(ErrorCode::InvalidCall, u"%1 %2 は登録されていません。"_s.arg(what, number));
}

ReportSelection selectionOf(const Request& request) {
    ReportSelection selection;
    selection.problemEntry = entryOf(problemEntries(*Common::DbConn), request.problemNo, u"課題"_s);
    selection.roundEntry =
        request.round.isEmpty() ? currentRound(*Common::DbConn, request.problemNo) : request.round;
    const QStringList assigned = evaluatorEntries(*Common::DbConn, request.problemNo);
    QStringList named;
    for (const auto& number : request.evaluators) named << entryOf(assigned, number, u"課題評価者"_s);
    // In list order, each once: calculated twice, an evaluator's results would be taken for local weights.
    for (const auto& entry : assigned)
        if (named.isEmpty() || named.contains(entry)) selection.evaluatorEntries << entry;
    return selection;
}

// False when the action was refused or failed; it has said why.
bool perform(const Action& action, const ReportSelection& selection) {
    PrintService service(Common::Printer);
    service.load(Common::AppDir);
    service.ToggleOutputTarget(); // documents are PDF
    service.FileExported = tellFile;
    Common::MsgTitle = action.screen;
    bool accepted = false;
    const bool completed = runAction(
        action.screen, [&] { accepted = action.work(service, selection, [](int, int, const QString&) {}); });
    return accepted && completed;
}

ExitCode perform(const Request& request) {
    bool succeeded = true;
    const bool completed = runAction(u"hollin-batch"_s, [&] {
        Common::openDatabase(applicationDirectory());
        const ReportSelection selection = selectionOf(request);
        for (const Action* action : request.actions)
            if (!(succeeded = perform(*action, selection))) return;
    });
    return completed && succeeded ? done : failed;
}

} // namespace

int main(int argc, char* argv[]) {
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) {}); // the toolkit's chatter
    qputenv("QT_QPA_PLATFORM", "offscreen");                          // pages need fonts, but no display
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(u"hollin-batch"_s);
    installFontSubstitutions();
    installStandardTexts();

    QCommandLineParser parser;
    addOptions(parser);
    const bool parsed = parser.parse(QGuiApplication::arguments());
    if (parsed && parser.isSet(u"help"_s)) {
        print(stdout, parser.helpText());
        return done;
    }
    if (const QString error = usageError(parser); !error.isEmpty()) {
        print(stderr, error + u'\n' + parser.helpText());
        return wrongUsage;
    }
    if (parser.isSet(u"directory"_s)) setApplicationDirectory(parser.value(u"directory"_s));
    Common::Presenter = consolePresenter();
    Common::Printer.onDocument(tellFile);
    const ExitCode code = perform(requestOf(parser));
    Common::DbConn.reset();
    return code;
}
