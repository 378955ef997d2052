// The principal eigenvector of a pairwise comparison matrix by the power method.
#pragma once

#include <QtGlobal>

#include "judgement/ComparisonMatrix.h"

enum class Convergence { Converged, NotConverged, TooManyItems };

// The power method with the maximum norm (R. von Mises, H. Pollaczek-Geiringer, 1929) over the first n items,
// tolerance 1e-6, at most 200 products: sets the weights and the eigenvalue. More than 20 items are not
// begun.
Convergence power(ComparisonMatrix& comparison, qint16 n);
