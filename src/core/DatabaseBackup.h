// Whether a database file is sound, and a safe copy of it: the same for the program and the database tool.
#pragma once

#include <QStringList>

// Faults of the pages, then tables and columns that are missing; empty when the file is sound. Raises a
// database error when it cannot be opened.
QStringList faultsOfDatabase(const QString& file);

// Copies the database as it stands between two units of work, also while it is in use, and gives the copy its
// name only when it has proved sound. Raises error 75 when `copy` exists, which stays as it is, and the
// copy's faults as an error when it has any.
void backUpDatabase(const QString& file, const QString& copy);
