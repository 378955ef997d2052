// All figures of a round as one document.
#pragma once

#include "rounds/RoundSelection.h"
#include "screens/Progress.h"

class Output;
struct RoundState;

// Of the chosen round, to the printer that the output target names; agreement beside the latest earlier round
// that has results. When just one evaluator is chosen, his values stand out. False when there is nothing to
// draw, or when the stability is left out; the user has been told why.
bool PrintFigures(Output& output, const RoundSelection& chosen, const Progress& progress);

// Whether results go in that are older than the answers: how firm their ranking is cannot be told from the
// answers. The user has been told then.
bool refuseStabilityOfOld(const RoundState& state);
