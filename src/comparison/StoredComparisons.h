// Writing the comparisons of one goal factor.
#pragma once

#include <QString>
#include <vector>

#include "rounds/EvaluatorRound.h"

// Replaces what the evaluator stored for the goal factor by one row for each pair of `items`; `values` are in
// pair order (1,2), (1,3), …, (2,3), …, `date` is "yyyy/mm/dd". Raises error 5, before anything is written,
// when there is not one value for each pair.
void saveComparisons(const EvaluatorRound& of, qint32 goalNo, const QString& date,
                     const std::vector<qint32>& items, const std::vector<float>& values);
