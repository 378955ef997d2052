// The principal eigenvector of a pairwise comparison matrix by the power method.
#pragma once

#include <QtGlobal>
#include <vector>

#include "judgement/ComparisonMatrix.h"

enum class Convergence { Converged, NotConverged, TooManyItems };

// The power method with the maximum norm (R. von Mises, H. Pollaczek-Geiringer, 1929) over the first n items,
// tolerance 1e-6, at most 200 products: sets the weights and the eigenvalue. More than 20 items are not
// begun.
Convergence power(ComparisonMatrix& comparison, qint16 n);

// Whether the power method might have stopped at these weights: one product, scaled by its largest component,
// moves none of them by more than its tolerance. No less strict than a comparison with weights computed
// anew: a positive matrix has one positive eigenvector, both come as near to it as a last step of 1e-6 brings
// them, and an answer that moves by one step of the scale moves the product by more than a thousandth.
// Weights and matrices that are not positive are left to the iteration. Sets the weights.
bool isPrincipal(ComparisonMatrix& comparison, const std::vector<double>& weights);
