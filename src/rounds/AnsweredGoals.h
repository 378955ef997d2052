// What of a problem is answered in a round.
#pragma once

#include <QString>
#include <map>
#include <optional>
#include <set>

#include "hierarchy/Structure.h"
#include "rounds/Comparisons.h"

// A goal factor counts as answered when just the pairs of its present children are stored, in whatever order;
// one with less than two children has nothing to answer and counts nowhere.
struct AnsweredGoals {
    std::set<qint32> goals;
    std::map<qint32, std::set<qint32>> byEvaluator; // only evaluators who have answered a goal

    int count(qint32 evaluatorNo) const;
    bool isAnswered(qint32 evaluatorNo, qint32 goalNo) const;
    bool isComplete(qint32 evaluatorNo) const { return count(evaluatorNo) == static_cast<int>(goals.size()); }
};

AnsweredGoals answeredGoals(const FamiliesByParent& families, const ComparisonsByEvaluator& comparisons);

// The round that a screen shows. Nothing when it is out of bounds: that is an error for whoever works with
// the round, not for whoever only looks what there is of it.
std::optional<ProblemRound> shownRound(Connection& connection, const QString& problemNo,
                                       const QString& round);

// Of all evaluators, in two statements however many they are.
AnsweredGoals readAnsweredGoals(const ProblemRound& of);
// Of one evaluator.
AnsweredGoals readAnsweredGoals(const EvaluatorRound& of);
