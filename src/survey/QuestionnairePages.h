// The questionnaire on paper: a covering letter, then for each goal factor its pairs with the scale to
// circle.
#pragma once

#include "screens/Work.h"

// One document for each chosen evaluator.
bool PrintQuestionnaires(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                         const Progress& progress);
