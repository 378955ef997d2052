// The values that all evaluators of a round give the factors of a problem, as the work table holds them.
#pragma once

#include <QString>
#include <vector>

#include "database/Recordset.h"
#include "hierarchy/TreePlace.h"
#include "judgement/Statistics.h"

// The key of the totals in `tempfac`. Keys of a deep hierarchy can be greater; the totals are last all the
// same.
constexpr qint32 totalsKey = 100000000;

struct EvaluatorValue {
    qint32 evaluatorNo = 0;
    double value = 0;
};

struct FactorValues {
    TreePlace place;
    bool isTotal = false; // overall weights of a bottom-level factor
    std::vector<EvaluatorValue> values;
    Statistics statistics;
};

// The factors in tree order, the totals last; a factor for each pair of parent and child and each place where
// it stands. `rows` are those of `tempfac` by key and child; `evaluatorField` is the column with the
// evaluator.
std::vector<FactorValues> readFactorValues(qint32 problemNo, Recordset rows, const QString& evaluatorField,
                                           const TreeLevels& levels);
