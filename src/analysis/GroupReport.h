// The group report: an evaluator's weights beside those of the whole group.
#pragma once

#include "output/Progress.h"
#include "output/ReportSelection.h"

class Connection;
class PrintService;

// Prints a document with its covering letter for each chosen evaluator. Before anything is printed, an
// evaluator without overall weights ends it with a message. False when it was refused.
bool MakeGroupReport(PrintService& print, const ReportSelection& selection, const Progress& progress);

// Fills `tempfac` with a row for each value of each evaluator of the round: parent, child, key, score and the
// evaluator in long2. The hierarchy stays in `workfac`.
void FillGroupTable(Connection& connection, qint32 problemNo, qint16 round);

// Prints from the filled table the document of one evaluator. Raises error 5 for a weight of 0, 53 when
// message.txt is missing, and what the printer raises; nothing is printed then.
void PrintGroupReport(PrintService& print, qint32 problemNo, qint16 round, qint32 evaluatorNo);
