// The calculation for all chosen evaluators: local weights, synthesis, inconsistency report.
#pragma once

#include "screens/Work.h"

// Local weights of every chosen evaluator, then the synthesis of each, then the report of what was found
// inconsistent. One without comparisons ends it with a message before anything is written. False when it was
// refused; a run-time error leaves the rows written so far.
bool evaluate(Output& output, const RoundSelection& chosen, const WorkOptions& options,
              const Progress& progress);
