#include "rounds/AnsweredGoals.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "text/Numbers.h"
#include "text/Value.h"

AnsweredGoals answeredGoals(const FamiliesByParent& families, const ComparisonsByEvaluator& comparisons) {
    AnsweredGoals answered;
    for (const auto& [goalNo, children] : families.asKeyValueRange()) {
        if (children.size() < 2) continue;
        answered.goals.insert(goalNo);
        std::vector<qint32> items(children.size());
        std::ranges::transform(children, items.begin(), &Factor::number);
        for (const auto& [evaluatorNo, goals] : comparisons)
            if (const auto goal = goals.find(goalNo); goal != goals.end() && goal->second.isOf(items))
                answered.byEvaluator[evaluatorNo].insert(goalNo);
    }
    return answered;
}

int AnsweredGoals::count(qint32 evaluatorNo) const {
    const auto answered = byEvaluator.find(evaluatorNo);
    return answered == byEvaluator.end() ? 0 : static_cast<int>(answered->second.size());
}

bool AnsweredGoals::isAnswered(qint32 evaluatorNo, qint32 goalNo) const {
    const auto answered = byEvaluator.find(evaluatorNo);
    return answered != byEvaluator.end() && answered->second.contains(goalNo);
}

std::optional<ProblemRound> shownRound(Connection& connection, const QString& problemNo,
                                       const QString& round) {
    const double number = leadingNumber(round);
    if (std::abs(number) > std::numeric_limits<qint16>::max()) return std::nullopt;
    return ProblemRound{connection, Value(problemNo).toLong(), toInteger(number)};
}

AnsweredGoals readAnsweredGoals(const ProblemRound& of) {
    return answeredGoals(readFamilies(of.connection, of.problemNo), readComparisons(of));
}

AnsweredGoals readAnsweredGoals(const EvaluatorRound& of) {
    return answeredGoals(readFamilies(of.connection, of.problemNo), readComparisons(of));
}
