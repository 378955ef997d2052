// A safe copy of the database, and whether a database file is sound.
#pragma once

#include <QString>

// Raises a database error that names the file and says what is wrong with it, when the engine finds a fault
// in it or when it lacks a table or a column.
void requireSoundDatabase(const QString& file);

// Makes the file `copy` with what `file` holds, also while a program has it open, and looks whether it is
// sound before it gets its name. Raises an error when it exists, cannot be made, or is not sound.
void backUpDatabase(const QString& file, const QString& copy);

// The same with the tables of the newest version. False, and no copy, when the file has them already.
bool upgradeDatabase(const QString& file, const QString& copy);
