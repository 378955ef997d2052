// Local weights and consistency of every comparison matrix of one evaluator's round.
#pragma once

#include <QtGlobal>

#include "text/BoundedArray.h"

struct EvaluatorRound;

// A finding against an evaluator's comparisons under a goal factor: a pair, or (both factors -1) the matrix
// as a whole.
struct Inconsistency {
    static constexpr qint32 asAWhole = -1;

    qint32 evaluatorNo = 0;
    qint32 goalNo = 0;
    qint32 sourceNo = asAWhole;
    qint32 targetNo = asAWhole;
};

// The findings of one calculation over all its evaluators, in the order in which they were made. One more
// than 501 raises error 9.
class InconsistencyList {
  public:
    void append(const Inconsistency& finding);
    qint16 count() const { return count_; }
    const Inconsistency& operator[](int index) const { return entries_[index]; }

  private:
    BoundedArray<Inconsistency, 501> entries_;
    qint16 count_ = 0;
};

// Whether the evaluator has compared anything for the round.
bool hasComparisons(const EvaluatorRound& of);

// Replaces the evaluator's result rows of the round with the local weights, level 0, one row for each
// child of every goal factor, and appends what is inconsistent (consistency index CI or ratio CR above 0.15)
// to `findings`. Nothing is touched when there are no comparisons. A goal factor whose weights do not
// converge is a finding and ends the calculation of the evaluator.
//
// Raises error 9 for more than 21 pairs (7 children) under one goal factor, 11 for a comparison value of 0, 5
// for an incomplete set of pairs; the rows written for earlier goal factors stay.
void calculateLocalWeights(const EvaluatorRound& of, InconsistencyList& findings);
