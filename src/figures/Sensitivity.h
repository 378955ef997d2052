// What becomes of the coefficients when a factor right below the problem weighs more or less.
#pragma once

#include "figures/RoundResults.h"

// The factor's weight is multiplied by k for every evaluator; all other weights stay as they are.
constexpr double leastFactorOfWeight = 1.0 / 9;
constexpr double greatestFactorOfWeight = 9;

// The overall weight of a leaf is fixed + k × scaled, for each evaluator who has one.
struct LeafResponse {
    qint32 factorNo = 0;
    int rank = 0; // at k = 1
    std::vector<double> fixed;
    std::vector<double> scaled;

    // The geometric mean over the evaluators.
    double coefficient(double k) const;
};

// At k the coefficients of two leaves are equal, on the side away from k = 1 that of the rising one is the
// greater.
struct RankChange {
    double k = 1;
    int rank = 0; // of the rising leaf behind k, of the falling one before
    qint32 risingNo = 0;
    qint32 fallingNo = 0;
    double roundedK =
        1; // k rounded away from 1 to as few places, two at least, as make what is said of it true
    bool changesPlaces = true; // with the rank below; not where more than two leaves meet or share a rank
};

struct Sensitivity {
    qint32 factorNo = 0;
    std::vector<LeafResponse> leaves; // all that have a coefficient, by their rank at k = 1
    // Among the first `leading` ranks, nearest to k = 1 first (in proportion: 2 and 1/2 are equally near).
    std::vector<RankChange> changes;
};

// For each factor right below the problem, in display order. Changes are found to 1e-12 in proportion to k;
// leaves that stay equal over a whole stretch do not change places in it, and those that are equal now do not
// at k = 1.
std::vector<Sensitivity> sensitivities(const RoundResults& results, int leading);
