// What is made for evaluators to answer.
#pragma once

#include <span>

#include "screens/Work.h"

// The questionnaire on paper, the answer sheet as a spreadsheet, the answer sheet as text: one file for each
// chosen evaluator. They raise error 5 for a problem without anything to compare, 75 or 76 when a file cannot
// be written, and what printing raises.
std::span<const Work> surveyWorks();
