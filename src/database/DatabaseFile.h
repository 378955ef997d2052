// The encrypted database file as a file: made, verified, copied. Work on its contents is Connection's.
#pragma once

#include <QString>
#include <QStringList>

class NewFile;

// The path, as the name of a database to be made. Raises error 75 when something bears it, or when a crash
// has left a journal that the engine would apply to the new file; one that means nothing any more is removed.
QString nameOfNewDatabase(const QString& path);

// Makes an encrypted database without tables: a new file of mode 0600, or in a file that is still empty.
// Raises error 75 for a file with contents.
void createEncryptedDatabase(const QString& path, const QString& password);

// Removes the journal that a crash has left beside the file, when it means nothing any more and no program is
// at work on the file. One that means something was applied when the file was opened.
void removeColdJournal(const QString& path, const QString& password);

// What the engine finds wrong with the file, page by page: empty when it is sound. Raises a database error
// when it cannot be opened with the password.
QStringList databaseFaults(const QString& path, const QString& password);

// Copies the database as it stands between two units of work, also while the program has it open, into the
// file `copy`, encrypted with the same password.
void copyDatabase(const QString& path, const NewFile& copy, const QString& password);
