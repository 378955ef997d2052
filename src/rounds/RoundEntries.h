// The lists that a calculation or a report is chosen from, and the names behind their numbers.
#pragma once

#include <QString>
#include <QStringList>

class Connection;

// "number:name" of all problems, of the evaluators assigned to a problem by number.
QStringList problemEntries(Connection& connection);
QStringList evaluatorEntries(Connection& connection, const QString& problemNo);
// The current round of a problem, "1" when it has none.
QString currentRound(Connection& connection, const QString& problemNo);

// The number before the ":" of an entry, as text.
QString entryNumber(const QString& entry);
