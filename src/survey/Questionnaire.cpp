#include "survey/Questionnaire.h"

#include <QSet>
#include <array>

#include "core/FactorNames.h"
#include "judgement/PairOrder.h"
#include "rounds/RoundSelection.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

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
    return {problem, round.round, goals};
}

QString questionOf(const QuestionGoal& goal) {
    return u"「%1」にとって、左と右のどちらがどれだけ重要ですか。"_s.arg(goal.factor.name);
}

QString degreeInWords(int degree) {
    static const std::array words{u"同じくらい"_s, u"やや"_s, u"かなり"_s, u"非常に"_s, u"極めて"_s};
    const auto below = static_cast<std::size_t>((degree - 1) / 2);
    return degree % 2 == 1 ? words.at(below)
                           : u"「%1」と「%2」の間くらい"_s.arg(words.at(below), words.at(below + 1));
}
