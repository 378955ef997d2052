// Writes the forms that evaluators fill in on a computer.
#pragma once

#include "screens/ReportWork.h"
#include "survey/Questionnaire.h"

// A spreadsheet: a sheet of instructions and the form, whose answers are chosen from a list and everything
// else of which is locked. A sentence beside each answer follows the choice.
QByteArray answerSpreadsheet(const Questionnaire& questionnaire, const Factor& evaluator);
// The cells of the form as text: without the sentences beside the answers.
QList<QStringList> answerRows(const Questionnaire& questionnaire, const Factor& evaluator);
// The same as text with commas, UTF-8 with a byte order mark, by which spreadsheet programs know it.
QByteArray answerText(const Questionnaire& questionnaire, const Factor& evaluator);

// One file in the folder "file" for each chosen evaluator; `print` tells of each.
bool WriteAnswerSpreadsheets(PrintService& print, const RoundSelection& chosen, const ReportOptions& options,
                             const Progress& progress);
bool WriteAnswerPages(PrintService& print, const RoundSelection& chosen, const ReportOptions& options,
                      const Progress& progress);
bool WriteAnswerTexts(PrintService& print, const RoundSelection& chosen, const ReportOptions& options,
                      const Progress& progress);
