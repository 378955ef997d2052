// The answer sheet as a page for any browser: one file that needs no network, keeps the answers in the
// browser and hands them back as the same text with commas that spreadsheet programs fill in.
#pragma once

#include "survey/Questionnaire.h"

QByteArray answerPage(const Questionnaire& questionnaire, const Factor& evaluator);
