// Coefficients of the group and their order.
#pragma once

#include "figures/RoundResults.h"

// Coefficients that differ by less than this part of themselves are equal: what is left of the difference is
// rounding, and two programs need not round alike.
constexpr double equalCoefficients = 1e-9;

// The rank of each value, 1 for the greatest. Equal ones share the rank, and the next is counted on behind
// all of them: 1, 2, 2, 4. A value of 0 or below is none and has the rank 0.
std::vector<int> ranks(const std::vector<double>& values);

struct LeafCoefficient {
    qint32 factorNo = 0;
    int rank = 0;
    double coefficient = 0; // geometric mean of the evaluators' overall weights
    double minimum = 0;
    double maximum = 0;
    EvaluatorValues values;
};

// The leaves by their rank, equal ones by number. Leaves that no evaluator has a weight for are left out.
std::vector<LeafCoefficient> rankedLeaves(const RoundResults& results);
