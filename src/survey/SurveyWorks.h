// What is made for evaluators to answer.
#pragma once

#include <span>

#include "screens/ReportWork.h"

// The questionnaire on paper, the form as a spreadsheet, the form as text: one file for each chosen
// evaluator. They raise error 5 for a problem without anything to compare, 75 or 76 when a file cannot be
// written, and what printing raises.
std::span<const ReportWork> surveyWorks();
