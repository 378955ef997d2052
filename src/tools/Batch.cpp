// hollin-batch: the work of the calculation and report screens from a script.
#include <QCommandLineParser>
#include <QGuiApplication>
#include <QProcess>
#include <QTextStream>
#include <algorithm>

#include "analysis/RoundWorks.h"
#include "core/Actions.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "files/ApplicationDirectory.h"
#include "files/TextFile.h"
#include "printing/Output.h"
#include "rounds/RoundEntries.h"
#include "rounds/RoundSelection.h"
#include "rounds/RoundState.h"
#include "survey/AnswerImport.h"
#include "survey/SurveyWorks.h"
#include "text/Fonts.h"
#include "text/StandardTexts.h"

using namespace Qt::StringLiterals;

namespace {

enum ExitCode { done = 0, failed = 1, wrongUsage = 2 };

struct Request {
    QString problemNo;
    QString round;
    QStringList evaluators;
    QList<const Work*> works;
    QStringList answerFiles;
    bool replaceAnswers;
    bool figures;
};

void print(FILE* stream, const QString& line) {
    QTextStream(stream) << line << Qt::endl;
}

void tellFile(const QString& path) {
    print(stdout, nativePath(path));
}

// Several works in a row are made of the same results.
void tellOnce(QString& told, const QString& line) {
    if (line != told) print(stderr, line);
    told = line;
}

const QString printOption = u"print"_s; // shared by the works that print a report and do nothing else

void addOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(u"課題の評価計算、報告書の作成、係数の設定をまとめて行います。"_s);
    parser.addPositionalArgument(u"PROBLEM"_s, u"課題番号"_s);
    parser.addPositionalArgument(u"FILE"_s, u"回答の入った調査票（--import とともに）"_s, u"[FILE...]"_s);
    parser.addOptions({
        {{u"h"_s, u"help"_s}, u"この説明を表示します"_s},
        {u"directory"_s, u"DB と file のあるフォルダー（既定: hollin が使うフォルダー）"_s, u"DIR"_s},
        {u"round"_s, u"比較回数（既定: 課題の比較回数）"_s, u"N"_s},
        {u"evaluator"_s, u"評価者番号。何回でも指定できます（既定: 課題評価者の全員）"_s, u"N"_s},
        {u"import"_s, u"回答の入った調査票 FILE... を登録します"_s},
        {u"replace"_s, u"--import で、以前の回答を置き換えます"_s},
        {u"figures"_s, u"図をまとめて PDF に出力します（指定したときだけ）"_s},
    });
    QStringList printed;
    for (const auto& works : {surveyWorks(), roundWorks()})
        for (const auto& work : works)
            if (work.option == printOption)
                printed << work.screen;
            else
                parser.addOption({work.option, work.help});
    parser.addOption(
        {printOption, u"%1のいずれかを PDF に出力します"_s.arg(printed.join(u'、')), u"SCREEN"_s});
}

bool isAsked(const QCommandLineParser& parser, const Work& work) {
    return work.option == printOption ? parser.values(work.option).contains(work.screen)
                                      : parser.isSet(work.option);
}

// What is wrong with the command line, or nothing.
QString usageError(const QCommandLineParser& parser) {
    if (!parser.errorText().isEmpty()) return parser.errorText();
    const auto arguments = parser.positionalArguments();
    if (arguments.isEmpty() || (arguments.size() > 1 && !parser.isSet(u"import"_s)))
        return u"課題番号を一つ指定してください。"_s;
    if (arguments.size() == 1 && parser.isSet(u"import"_s)) return u"読み込むファイルを指定してください。"_s;
    if (parser.isSet(u"import"_s) && parser.isSet(u"round"_s))
        return u"調査票は課題の比較回数に登録されます。--round は指定できません。"_s;
    for (const auto& number :
         arguments.first(1) + parser.values(u"evaluator"_s) + parser.values(u"round"_s)) {
        bool isNumber = false;
        number.toInt(&isNumber);
        if (!isNumber) return u"「%1」は番号ではありません。"_s.arg(number);
    }
    for (const auto& screen : parser.values(printOption))
        if (std::ranges::none_of(roundWorks(), [&](const Work& work) {
                return work.option == printOption && work.screen == screen;
            }))
            return u"「%1」という報告書はありません。"_s.arg(screen);
    return {};
}

Request requestOf(const QCommandLineParser& parser) {
    Request request{parser.positionalArguments().constFirst(),
                    parser.value(u"round"_s),
                    parser.values(u"evaluator"_s),
                    {},
                    parser.positionalArguments().mid(1),
                    parser.isSet(u"replace"_s),
                    parser.isSet(u"figures"_s)};
    for (const auto& work : surveyWorks())
        if (isAsked(parser, work)) request.works << &work;
    for (const auto& work : roundWorks())
        if (isAsked(parser, work)) request.works << &work;
    if (request.works.isEmpty() && request.answerFiles.isEmpty() && !request.figures)
        for (const auto& work : roundWorks()) request.works << &work;
    return request;
}

// The entry of the number among those offered. Raises error 5 when it is not among them.
QString entryOf(const QStringList& offered, const QString& number, const QString& what) {
    for (const auto& entry : offered)
        if (entryNumber(entry).toInt() == number.toInt()) return entry;
    throw RuntimeError(ErrorCode::InvalidCall, u"%1 %2 は登録されていません。"_s.arg(what, number));
}

std::vector<ChosenEvaluator> evaluatorsFor(const QStringList& entries) {
    try {
        return chosenEvaluators(entries);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error, error.description() + u"\n--evaluator で選び、何回かに分けてください。"_s);
    }
}

RoundSelection selectionOf(Connection& connection, const Request& request) {
    const QString problem = entryOf(problemEntries(connection), request.problemNo, u"課題"_s);
    const QString round =
        request.round.isEmpty() ? currentRound(connection, request.problemNo) : request.round;
    const QStringList assigned = evaluatorEntries(connection, request.problemNo);
    QStringList named;
    for (const auto& number : request.evaluators) named << entryOf(assigned, number, u"課題評価者"_s);
    // In list order, each once: calculated twice, an evaluator's results would be taken for local weights.
    QStringList chosen;
    for (const auto& entry : assigned)
        if (named.isEmpty() || named.contains(entry)) chosen << entry;
    return {{connection, Value(request.problemNo).toLong(), Value(round).toInteger()},
            problem,
            round,
            std::ranges::any_of(request.works, &Work::hasEvaluators) ? evaluatorsFor(chosen)
                                                                     : std::vector<ChosenEvaluator>()};
}

// False when the work was refused or failed; it has said why.
bool perform(const Work& work, const RoundSelection& chosen) {
    Output output(Printer::ofProgram());
    output.load(Common::AppDir);
    output.makePdfFilesOnly();
    output.FileExported = tellFile;
    Common::MsgTitle = work.screen;
    bool accepted = false;
    const bool completed = runAction(
        work.screen, [&] { accepted = work.run(output, chosen, {}, [](int, int, const QString&) {}); });
    return accepted && completed;
}

// Answers come in before anything is calculated from them.
bool importFiles(const ProblemRound& round, const Request& request) {
    if (request.answerFiles.isEmpty()) return true;
    bool all = false;
    const bool completed = runAction(u"調査票"_s, [&] {
        all = importAnswers(round, request.answerFiles, request.replaceAnswers, tellFile,
                            [](const QString& line) { print(stderr, line); });
    });
    return completed && all;
}

// The figures are drawn by a program of its own, with widgets. False when it failed; it has said why.
bool drawFigures(const Request& request, const RoundSelection& chosen) {
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    QStringList arguments{u"--directory"_s, applicationDirectory(), request.problemNo, chosen.roundEntry};
    if (request.evaluators.size() == 1) arguments << request.evaluators.constFirst();
    program.start(QCoreApplication::applicationDirPath() + u"/hollin-figures"_s, arguments);
    if (!program.waitForStarted())
        throw RuntimeError(ErrorCode::FileNotFound,
                           u"ファイルが見つかりません。\n%1"_s.arg(program.program()));
    program.waitForFinished(-1);
    return program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
}

ExitCode perform(const Request& request) {
    bool succeeded = true;
    const bool completed = runAction(u"hollin-batch"_s, [&] {
        Common::openDatabase(applicationDirectory());
        const RoundSelection chosen = selectionOf(*Common::DbConn, request);
        QString told;
        const auto tellState = [&] { tellOnce(told, readRoundState(chosen).line()); };
        succeeded = importFiles(chosen, request);
        if (!request.answerFiles.isEmpty()) tellState();
        if (!succeeded) return;
        for (const Work* work : request.works) {
            if (work->use == RoundUse::Takes) tellState();
            succeeded = perform(*work, chosen);
            if (work->use == RoundUse::Makes) tellState();
            if (!succeeded) return;
        }
        if (!request.figures) return;
        tellState();
        succeeded = drawFigures(request, chosen);
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
    Printer::ofProgram().onDocument(tellFile);
    const ExitCode code = perform(requestOf(parser));
    Common::DbConn.reset();
    return code;
}
