// How firm the ranking is: what becomes of it when every comparison moves by one step of the scale.
#pragma once

#include <array>
#include <functional>

#include "figures/RoundResults.h"

// The comparisons of a round in memory.
struct RoundComparisons {
    struct Goal {
        int items = 0;
        std::vector<double> values; // in pair order
        std::vector<int> edges; // of the graph, for each item; -1 for one that has no way from the problem
    };
    using Evaluator = std::vector<Goal>; // by goal number, as the calculation takes them

    FactorGraph graph;
    std::vector<Evaluator> evaluators;
};

// Of the evaluators whose results these are. Raises error 5 for an incomplete set of pairs.
RoundComparisons readRoundComparisons(Connection& connection, const RoundResults& results);

constexpr int countedRanks = 3;

struct LeafStability {
    qint32 factorNo = 0;
    int rank = 0;                            // of the comparisons as they are, as it is shown
    double coefficient = 0;                  // likewise
    std::array<int, countedRanks> timesOn{}; // runs in which it stood first, second, third
    int bestRank = 0;
    int worstRank = 0;
};

struct Stability {
    int runs = 0;
    std::vector<LeafStability> leaves; // by rank, equal ones by number
};

constexpr int stabilityRuns = 1000;

// In each run every comparison moves by one step of the scale 9 … 1 … 1/9, up or down alike; one that stands
// at an end stays there when it would move beyond. The coefficients are calculated from the moved comparisons
// as from entered ones, and leaves whose coefficients are equal share a rank.
//
// Anyone can draw the same numbers: std::mt19937_64 seeded with 1 gives one number for each comparison; its
// highest bit, when set, moves the comparison towards the source factor (9 is the end), else towards the
// target. The order is run by run, in it evaluator by evaluator, goal factor by goal factor (both by number),
// in it by pair order.
//
// `proceed` is asked after each run, with the number of runs done; false ends it with those.
Stability rankStability(const RoundComparisons& comparisons, int runs,
                        const std::function<bool(int done)>& proceed);
