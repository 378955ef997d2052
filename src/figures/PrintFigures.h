// All figures of a round as one document.
#pragma once

#include "rounds/RoundSelection.h"
#include "screens/Progress.h"

class PrintService;
struct RoundResults;

// Of the chosen round, to the printer that the output target names; agreement beside the latest earlier round
// that has results. When just one evaluator is chosen, his values stand out. False when there is nothing to
// draw; the user has been told why.
bool PrintFigures(PrintService& print, const RoundSelection& chosen, const Progress& progress);

// Whether the round has no results; the user has been told then.
bool refuseWithoutResults(const RoundResults& results);
