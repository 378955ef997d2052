// What there is to compare in a problem, and what of it is answered in a round.
#pragma once

#include <QString>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "rounds/EvaluatorRound.h"

struct Factor {
    qint32 number = 0;
    QString name;
};

// The factors of a problem that have children, by number.
std::vector<Factor> readGoals(Connection& connection, qint32 problemNo);
// The children of a goal factor in their display order: items 1, 2, … of its comparisons.
std::vector<Factor> comparedChildren(Connection& connection, qint32 problemNo, qint32 goalNo);

// What is answered in a round. A goal factor counts as answered when just the pairs of its present children
// are stored, in whatever order; one with less than two children has nothing to answer and counts nowhere.
struct AnsweredGoals {
    std::set<qint32> goals;
    std::map<qint32, std::set<qint32>> byEvaluator; // only evaluators who have answered a goal

    int count(qint32 evaluatorNo) const;
    bool isAnswered(qint32 evaluatorNo, qint32 goalNo) const;
    bool isComplete(qint32 evaluatorNo) const { return count(evaluatorNo) == static_cast<int>(goals.size()); }
};

// The round that a screen shows. Nothing when it is out of bounds: that is an error for whoever works with
// the round, not for whoever only looks what there is of it.
std::optional<ProblemRound> shownRound(Connection& connection, const QString& problemNo,
                                       const QString& round);

// Of all evaluators, in two statements however many they are.
AnsweredGoals readAnsweredGoals(const ProblemRound& of);
// Of one evaluator.
AnsweredGoals readAnsweredGoals(const EvaluatorRound& of);
