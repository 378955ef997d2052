// How far the evaluators agree on each factor, and how that has moved since an earlier round.
#pragma once

#include <array>
#include <optional>

#include "figures/RoundResults.h"
#include "judgement/Statistics.h"

struct FactorSpread {
    qint32 parentNo = 0; // the problem for an overall weight
    qint32 factorNo = 0;
    double minimum = 0;
    double maximum = 0;
    double mean = 0;
    double deviation = 0;
    std::array<int, valueClasses> classes{};
    EvaluatorValues values;
    std::optional<double> earlierDeviation; // nothing where the earlier round has no values
};

struct Agreement {
    std::vector<FactorSpread> weights; // local weights, the worst agreement first
    std::vector<FactorSpread> totals;  // overall weights of the leaves, likewise
    double variation = 0;              // of the round's local weights, as the grade is made of it
    std::optional<double> earlierVariation;
};

// The spreads as the analysis output has them.
Agreement agreement(const RoundResults& results, const RoundResults* earlier = nullptr);
