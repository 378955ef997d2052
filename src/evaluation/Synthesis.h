// Overall weights: local weights multiplied down the hierarchy.
#pragma once

struct EvaluatorRound;

// Rewrites the evaluator's result rows of the round, which must be just the level 0 rows of the local
// weights: each (parent, child) gets its global weight, summed over all paths from the problem; a row whose
// child is a leaf gets level 1; each leaf gets one row of level 2 with the number of its level 1 rows and the
// sum of their global weights. Nothing is normalised: the largest child of every parent keeps the local
// weight 1.
//
// The walk stays in `tempfac` until the next use. Raises error 5 when the hierarchy runs in a circle.
void synthesise(const EvaluatorRound& of);
