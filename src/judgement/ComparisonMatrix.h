// The pairwise comparisons under one goal factor as a reciprocal matrix.
#pragma once

#include <vector>

#include "judgement/Limits.h"
#include "text/BoundedArray.h"

constexpr int comparisonItems = mostChildren + 1; // cells of one side; `power` takes one less

// Matrix, weights and eigenvalue of one goal factor. Only the first n rows and columns are set and read.
struct ComparisonMatrix {
    BoundedArray<BoundedArray<double, comparisonItems>, comparisonItems>
        value;                                    // preference of row over column
    BoundedArray<double, comparisonItems> weight; // local weights after `power`, the largest is exactly 1
    double eigenvalue = 0;                        // last estimate of the principal eigenvalue λ
};

// Sets the n × n cells from the values of the upper triangle in pair order. Raises error 11 for a value of 0,
// 9 for fewer values than pairs or more than 21 items.
void fillMatrix(ComparisonMatrix& comparison, const std::vector<double>& pairs, int n);
