// What the answers under one goal factor say about each other, for whoever can still ask back.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "judgement/Consistency.h"

// The comparison that agrees least with the others. Items are counted from 0, positions are those of the
// comparison scale.
struct OddPair {
    int source = 0;
    int target = 0;
    int given = 0;
    int suggested = 0; // by the other comparisons
};

// For the pair (i, j) the others suggest the geometric mean of a(i, k)·a(k, j) over all other items k: the
// logarithmic least squares solution (G. Crawford, C. Williams, 1985) of the comparisons without this one, as
// for a question left open (P. T. Harker, 1987). The pair is the one whose answer is furthest, as a ratio,
// from that value kept within the scale; nothing when every answer is the step of the scale that the others
// suggest, and for less than three items, which have no others. The matrix is filled, `power` need not have
// run.
std::optional<OddPair> mostOddPair(const ComparisonMatrix& comparison, int n);

struct AnswerCheck {
    int items = 0;
    // As the calculation finds it; nothing when it finds no weights, or for more than 12 items.
    std::optional<Consistency> consistency;
    std::optional<OddPair> oddPair;

    // Whether the calculation will find the answers inconsistent. What it does not take it does not judge.
    bool isInconsistent() const;
};

// Of the upper triangle of 2 to 20 items in pair order. Raises error 5 for another number of values, 11 for a
// value of 0.
AnswerCheck checkAnswers(const std::vector<double>& pairs);

// What the calculation will find, with its limits, or why it will not.
QString consistencyText(const AnswerCheck& check);
