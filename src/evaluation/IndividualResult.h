// An evaluator's own results: the tree with weights, the comparisons, the overall weights.
#pragma once

#include "screens/Work.h"

// Prints a document for each chosen evaluator; without `showValues` the weights in the tree are zero. Before
// anything is printed, an evaluator without results ends it with a message. False when it was refused.
//
// Raises error 9 for more than 21 children of one parent and what the printer raises; documents that were
// sent before stay so.
bool PrintIndividualResult(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                           const Progress& progress);
