// The values that all evaluators of a round give the factors of a problem, as the work table holds them.
#pragma once

#include <QHash>
#include <QString>
#include <vector>

#include "analysis/Statistics.h"
#include "hierarchy/TreePlace.h"

class Connection;

// The key of the totals in `tempfac`. Keys of a deep hierarchy can be greater; the totals are last all the
// same.
constexpr qint32 totalsKey = 100000000;
constexpr int totalsLevel = -1; // they stand in no level of the tree

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

// The factors in tree order, the totals last. `sql` reads `tempfac` by key and child; `evaluatorField` is the
// column with the evaluator, `levels` the level of each key.
std::vector<FactorValues> readFactorValues(Connection& connection, const QString& sql,
                                           const QString& evaluatorField, const QHash<double, int>& levels);
