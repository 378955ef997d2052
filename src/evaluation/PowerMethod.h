// The principal eigenvector of a pairwise comparison matrix by the power method.
#pragma once

#include <QtGlobal>

#include "platform/BoundedArray.h"

constexpr int comparisonItems = 21; // cells of one side of the matrix; `power` takes one less

// Matrix, weights and eigenvalue of one goal factor. Only the first n rows and columns are set and read.
struct ComparisonMatrix {
    BoundedArray<BoundedArray<double, comparisonItems>, comparisonItems>
        value;                                    // preference of row over column
    BoundedArray<double, comparisonItems> weight; // local weights after `power`, the largest is exactly 1
    double eigenvalue = 0;                        // last estimate of the principal eigenvalue λ
};

// The power method with the maximum norm (R. von Mises, H. Pollaczek-Geiringer, 1929), tolerance 1e-6, at
// most 200 products. True when the iteration converged. More than 20 items are refused with a message, and
// false.
bool power(ComparisonMatrix& comparison, qint16 n);
