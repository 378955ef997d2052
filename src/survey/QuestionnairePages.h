// The questionnaire on paper: a covering letter, then for each goal factor its pairs with the scale to
// circle.
#pragma once

#include "screens/ReportWork.h"

// One document for each chosen evaluator.
bool PrintQuestionnaires(PrintService& print, const RoundSelection& chosen, const ReportOptions& options,
                         const Progress& progress);
