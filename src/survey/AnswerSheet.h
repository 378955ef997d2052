// Writes the answer sheets that evaluators fill in on a computer.
#pragma once

#include "screens/Work.h"
#include "survey/Questionnaire.h"

// A spreadsheet: a sheet of instructions and the answer sheet, whose answers are chosen from a list and
// everything else of which is locked. A sentence beside each answer follows the choice.
QByteArray answerSpreadsheet(const Questionnaire& questionnaire, const Factor& evaluator);
// The cells of the answer sheet as text: without the sentences beside the answers.
QList<QStringList> answerRows(const Questionnaire& questionnaire, const Factor& evaluator);
// The same as text with commas, UTF-8 with a byte order mark, by which spreadsheet programs know it.
QByteArray answerText(const Questionnaire& questionnaire, const Factor& evaluator);

// One file in the folder "file" for each chosen evaluator; `output` tells of each.
bool WriteAnswerSpreadsheets(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                             const Progress& progress);
bool WriteAnswerPages(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                      const Progress& progress);
bool WriteAnswerTexts(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                      const Progress& progress);
