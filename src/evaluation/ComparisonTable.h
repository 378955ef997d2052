// The comparisons that one evaluator made under one goal factor, as a table of texts.
#pragma once

#include <QString>
#include <utility>
#include <vector>

#include "judgement/Limits.h"
#include "text/BoundedArray.h"

struct EvaluatorRound;

struct ComparisonTable {
    static constexpr int size = mostChildren + 1;

    qint32 goalNo = 0;
    std::vector<qint32> items; // factors in the order of the comparisons
    BoundedArray<BoundedArray<QString, size>, size> cells;
};

// The evaluator's comparisons of the round under a goal factor; without items when there are none. Raises
// error 9 for more than 21 children.
ComparisonTable readComparisonTable(const EvaluatorRound& of, qint32 goalNo);

// A comparison value as a whole number or the reciprocal of one ("3", "1/3"), and its mirror image. Raises
// error 11 for 0.
std::pair<QString, QString> comparisonTexts(double value);
