// The group report: an evaluator's weights beside those of the whole group.
#pragma once

#include "hierarchy/TreePlace.h"
#include "screens/Work.h"

struct ProblemRound;

// Prints a document with its covering letter for each chosen evaluator. Before anything is printed, an
// evaluator without overall weights ends it with a message. False when it was refused. Raises error 5 for a
// weight of 0, 53 when message.txt is missing, and what the printer raises; documents that were sent before
// stay so.
bool MakeGroupReport(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                     const Progress& progress);

// Fills `tempfac` with a row for each value of each evaluator of the round: parent, child, key, score and the
// evaluator in long2. The hierarchy stays in `workfac`; its levels are given back.
TreeLevels FillGroupTable(const ProblemRound& of);
