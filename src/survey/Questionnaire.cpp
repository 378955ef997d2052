#include "survey/Questionnaire.h"

#include <QSet>

#include "comparison/GoalAspects.h"
#include "core/Common.h"
#include "core/FactorNames.h"
#include "database/Recordset.h"
#include "judgement/PairOrder.h"
#include "rounds/RoundSelection.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

QHash<qint32, QString> contentsOf(Connection& connection, qint32 problemNo) {
    QHash<qint32, QString> contents;
    for (Recordset rows(connection,
                        u"SELECT 要因番号,要因内容 FROM 要因 WHERE 要因番号 IN "
                        "(SELECT 子要因番号 FROM 要因構成 WHERE 課題番号 = ? UNION SELECT ?)",
                        problemNo, problemNo);
         !rows.eof(); rows.moveNext())
        if (const auto text = Common::NullToEmpty(rows[u"要因内容"_s]).trimmed(); !text.isEmpty())
            contents[rows[u"要因番号"_s].toLong()] = text;
    return contents;
}

// A factor that stands under several parents is asked once: its comparisons are stored once.
QList<QuestionGoal> goalsBelow(const Factor& problem, const FamiliesByParent& families) {
    QList<QuestionGoal> goals;
    QSet<qint32> met{problem.number};
    QList<Factor> waiting{problem};
    while (!waiting.isEmpty()) {
        const Factor factor = waiting.takeFirst();
        const auto children = families.value(factor.number);
        if (children.size() > 1) goals.append({factor, {children.begin(), children.end()}});
        for (const auto& child : children) {
            if (met.contains(child.number)) continue;
            met.insert(child.number);
            waiting.append(child);
        }
    }
    return goals;
}

} // namespace

QList<QuestionPair> QuestionGoal::pairs() const {
    QList<QuestionPair> pairs;
    for (const auto& [left, right] : pairsOf(items()))
        pairs.append({static_cast<int>(pairs.size()) + 1, children[left], children[right]});
    return pairs;
}

int Questionnaire::pairs() const {
    int pairs = 0;
    for (const auto& goal : goals) pairs += pairCount(goal.items());
    return pairs;
}

Questionnaire questionnaireOf(const ProblemRound& round) {
    const Factor problem{round.problemNo, factorName(round.connection, round.problemNo)};
    const auto goals = goalsBelow(problem, readFamilies(round.connection, round.problemNo));
    if (goals.isEmpty())
        throw RuntimeError(ErrorCode::InvalidCall,
                           u"課題 %1「%2」の要因構成には比較する要因がありません。"_s.arg(
                               QString::number(round.problemNo), problem.name));
    return {problem, round.round, goals, contentsOf(round.connection, round.problemNo)};
}

Questionnaire askedQuestionnaire(const ProblemRound& round, const QString& folder) {
    auto questionnaire = questionnaireOf(round);
    const auto aspects = readGoalAspects(round.connection, round.problemNo, folder);
    for (auto& goal : questionnaire.goals) {
        goal.aspect = aspects.value(goal.factor.number);
        goal.contents = questionnaire.contents.value(goal.factor.number);
    }
    return questionnaire;
}

QString titleOf(const Questionnaire& questionnaire) {
    return u"調査票　%1（%2回）"_s.arg(questionnaire.problem.name, QString::number(questionnaire.round));
}

QString questionOf(const QuestionGoal& goal) {
    return comparisonQuestion(goal.factor.name, goal.aspect);
}
