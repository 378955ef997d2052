#include "survey/QuestionnairePages.h"

#include <algorithm>

#include "core/FactorNames.h"
#include "judgement/ComparisonScale.h"
#include "printing/Report.h"
#include "rounds/RoundSelection.h"
#include "survey/Questionnaire.h"
#include "text/Numbers.h"
#include "text/TextColumns.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

// Half-width columns. A digit stands every three of them, 5.3 mm: room for a circle drawn by hand.
constexpr int digitPitch = 3;
constexpr int firstDigit = 3; // the words over the ends reach beyond the digits
constexpr int scaleColumns = 55;
constexpr int nameColumns = 25;
constexpr int pairColumns = 5;
constexpr double halfWidth = 10 * 25.4 / 72 / 2; // mm, at 10 pt
constexpr double leftMargin = 5;                 // mm

// Texts in half-width columns, each centred over the digit of its place.
QString overDigits(const QList<std::pair<int, QString>>& texts) {
    QString line;
    for (const auto& [place, text] : texts) {
        const int width = TextColumns(text);
        const int column = firstDigit + place * digitPitch - (width - 1) / 2;
        line += QString(std::max(0, column - TextColumns(line)), u' ') + text;
    }
    return line;
}

QString scaleDigits() {
    QList<std::pair<int, QString>> texts;
    for (int place = 0; place < scalePositions; ++place)
        texts.append({place, QString::number(degreeAt(place))});
    return overDigits(texts);
}

// The words of the odd degrees. Neighbours would touch each other, so every second one stands in a line
// above.
QString wordsOverDigits() {
    QList<std::pair<int, QString>> upper;
    QList<std::pair<int, QString>> lower;
    for (int place = 0; place < scalePositions; place += 2) {
        (degreeAt(place) % 4 == 1 ? upper : lower).append({place, wordUnder(place)});
    }
    return overDigits(upper) + u'\n' + overDigits(lower);
}

QList<ReportColumn> pairTable() {
    QList<ReportColumn> columns;
    double left = leftMargin;
    for (const auto& [heading, width] : {std::pair{u"組"_s, pairColumns},
                                         {u"左の要因"_s, nameColumns},
                                         {wordsOverDigits(), scaleColumns},
                                         {u"右の要因"_s, nameColumns}}) {
        columns.append({heading, left, (width + 0.2) * halfWidth});
        left += (width + 1) * halfWidth;
    }
    return columns;
}

// A name in as many lines as it takes: an answer must not go to another factor that begins alike.
QStringList wrapped(QString name) {
    QStringList lines;
    do {
        lines << leadingCharacters(name, FitChars(name, nameColumns));
        name.remove(0, lines.last().size());
    } while (!name.isEmpty());
    return lines;
}

// The number by which the goal is found in the grid, and the question.
QString numberedQuestion(const QuestionGoal& goal) {
    return formatNumber(goal.factor.number, u"0000"_s) + u"　"_s + questionOf(goal);
}

struct PairRows {
    QStringList left;
    QStringList right;
    int rows() const { return static_cast<int>(std::max(left.size(), right.size())); }
};

// A goal may go on on the next page, but neither its first nor its last pair stands alone.
void printGoal(Report& report, const QuestionGoal& goal) {
    QList<PairRows> pairs;
    for (const auto& pair : goal.pairs()) pairs.append({wrapped(pair.left.name), wrapped(pair.right.name)});
    const auto twoFrom = [&pairs](qsizetype first) {
        return pairs[first].rows() + (first + 1 < pairs.size() ? pairs[first + 1].rows() : 0);
    };
    static const auto columns = pairTable();
    static const auto scale = scaleDigits();
    report.newTable(numberedQuestion(goal), columns, twoFrom(0));
    for (qsizetype i = 0; i < pairs.size(); ++i) {
        const auto& pair = pairs[i];
        report.group(i == 0 || i + 2 == pairs.size() ? twoFrom(i) : pair.rows());
        report.row({QString::number(i + 1), pair.left.first(), scale, pair.right.first()});
        for (int row = 1; row < pair.rows(); ++row)
            report.row({{}, pair.left.value(row), {}, pair.right.value(row)});
    }
}

void printFor(Output& output, const Questionnaire& questionnaire, const Factor& evaluator) {
    const auto& problem = questionnaire.problem.name;
    output.fillSlots(evaluator.name, problem, questionnaire.round);
    Report report(output,
                  {u"調査票"_s,
                   {u"評価者 %1　%2様"_s.arg(QString::number(evaluator.number), evaluator.name),
                    problemLine(problem, questionnaire.round)},
                   {}},
                  {u"調査票"_s, problem, evaluator.name, questionnaire.round});
    report.coveringLetter(output.FileDir + u"\\survey.txt"_s);
    for (const auto& goal : questionnaire.goals) printGoal(report, goal);
    report.finish();
}

} // namespace

bool PrintQuestionnaires(Output& output, const RoundSelection& chosen, const WorkOptions&,
                         const Progress& progress) {
    auto questionnaire = askedQuestionnaire(chosen, output.FileDir);
    // In the order of the grid, into which somebody will type the answers.
    std::ranges::sort(questionnaire.goals, {}, [](const auto& goal) { return goal.factor.number; });
    int done = 0;
    for (const auto& evaluator : chosen.evaluators) {
        progress(done++, static_cast<int>(chosen.evaluators.size()), evaluator.entry);
        printFor(output, questionnaire,
                 {evaluator.number, evaluatorName(chosen.connection, evaluator.number)});
    }
    return true;
}
