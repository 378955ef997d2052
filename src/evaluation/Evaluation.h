// The calculation for all chosen evaluators: local weights, synthesis, inconsistency report.
#pragma once

#include "output/Progress.h"
#include "output/ReportSelection.h"

class PrintService;

// Local weights of every chosen evaluator, then the synthesis of each, then the report of what was found
// inconsistent. An evaluator without comparisons ends it with a message before any synthesis. False when it
// was refused; a run-time error leaves the rows written so far.
bool evaluate(PrintService& print, const ReportSelection& selection, const Progress& progress);
