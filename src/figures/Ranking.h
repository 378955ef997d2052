// Coefficients of the group and their order.
#pragma once

#include "figures/RoundResults.h"

struct LeafCoefficient {
    qint32 factorNo = 0;
    int rank = 0;
    double coefficient = 0; // geometric mean of the evaluators' overall weights
    double minimum = 0;
    double maximum = 0;
    EvaluatorValues values;
};

// The leaves by their rank, those that are shown equal by number. Leaves that no evaluator has a weight for
// are left out.
std::vector<LeafCoefficient> rankedLeaves(const RoundResults& results);
