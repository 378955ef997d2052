// The analysis: how the evaluators' weights of each factor are spread, and how far the round agrees.
#pragma once

#include "screens/Work.h"

// Prints the analysis of the problem's round over all evaluators. False when it was refused: without overall
// weights of the round it ends with a message. Raises error 5 for a weight of 0, 9 for more than 20 children
// of one parent, and what the printer raises; nothing is printed then.
bool PrintAnalysis(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                   const Progress& progress);
