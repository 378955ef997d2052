// The results of a round as they are stored, and whether they are what the answers give.
#pragma once

#include <map>
#include <set>
#include <utility>

#include "hierarchy/Structure.h"
#include "rounds/Comparisons.h"

// What the calculation has stored of one evaluator.
struct StoredResults {
    struct Weights {
        double local;
        double global;
    };

    std::map<std::pair<qint32, qint32>, Weights> edges; // by parent and child
    std::map<qint32, double> totals;                    // overall weights, by leaf
    bool isDamaged = false;                             // an edge or a leaf stands twice
};

// By evaluator, in one statement however many there are.
std::map<qint32, StoredResults> readStoredResults(const ProblemRound& of);

// The leaves of a problem that answers can reach: below goal factors with two children or more.
std::set<qint32> reachableLeaves(qint32 problemNo, const ChildrenByParent& structure);

// Whether a calculation of these answers would store just these results, to the accuracy of the power method;
// its multiplication down the tree is looked through edge by edge, without being done again.
bool belongTo(const StoredResults& stored, const EvaluatorComparisons& answers, qint32 problemNo,
              const ChildrenByParent& structure);
