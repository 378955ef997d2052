// How far the comparisons under one goal factor agree with each other (T. L. Saaty, 1980).
#pragma once

#include <vector>

#include "judgement/ComparisonMatrix.h"

constexpr double consistencyIndexLimit = 0.15;
constexpr double consistencyRatioLimit = 0.15;
constexpr double pairDeviationLimit = 3.0;
constexpr int mostItemsWithRandomIndex = 12;

struct Consistency {
    double index = 0; // CI = (λ − n) ÷ (n − 1)
    double ratio = 0; // CR = CI ÷ RI(n)

    bool isAcceptable() const { return !(index > consistencyIndexLimit || ratio > consistencyRatioLimit); }
};

// Of n items, 2 to 12, with the principal eigenvalue λ. Raises error 9 outside.
Consistency consistencyOf(double eigenvalue, int n);

// A pair whose comparison is far from what the weights of all comparisons say. Items are counted from 0.
struct PairAtOdds {
    int source = 0;
    int target = 0;
    int number = 0; // in pair order
};

// The pairs for which |w(i) ÷ w(j) − a(i, j)| is above 3, in pair order, after `power`.
std::vector<PairAtOdds> pairsAtOdds(const ComparisonMatrix& comparison, int n);
