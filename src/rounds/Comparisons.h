// The comparisons of a round in memory.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "rounds/EvaluatorRound.h"

// What one evaluator entered under one goal factor, in display order.
struct GoalComparisons {
    std::vector<std::pair<qint32, qint32>> pairs; // source and target
    std::vector<double> values; // one that is no number reads as 0, which no calculation takes

    // The factors compared, as the calculation numbers them: the source of the first pair, then the targets
    // of the first row of pairs. Empty when the pairs are no full set.
    std::vector<qint32> items() const;
    // Whether just these factors are compared, each pair once, in whatever order and direction.
    bool isOf(const std::vector<qint32>& factors) const;
};

using EvaluatorComparisons = std::map<qint32, GoalComparisons>;        // by goal factor
using ComparisonsByEvaluator = std::map<qint32, EvaluatorComparisons>; // by evaluator

// In one statement however many evaluators there are.
ComparisonsByEvaluator readComparisons(const ProblemRound& of);
// Those of one evaluator, if any.
ComparisonsByEvaluator readComparisons(const EvaluatorRound& of);
