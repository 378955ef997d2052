// The database engine: opening an encrypted file, errors as run-time errors.
#pragma once

#include <QString>
#include <memory>

#include "text/RuntimeError.h"

struct sqlite3;

struct DatabaseCloser {
    void operator()(sqlite3* database) const;
};
using Database = std::unique_ptr<sqlite3, DatabaseCloser>;

// An existing file (an empty one becomes a database), unlocked with the password, nothing readable beside it.
// Files are ciphered in a way of our own that all generations of the engine's library can read; one that was
// made with the defaults of a later generation is recognised, and opens where the library is of that
// generation. Raises a database error when it is no database, damaged at its beginning, or the password is
// wrong.
Database openEncryptedFile(const QString& path, const QString& password);

// `what` failed, why in Japanese where the cause is a known one, and the engine's own words for its last
// error.
RuntimeError databaseError(sqlite3* database, const QString& what);

// Whether the file is ciphered in our own way.
bool hasOwnCipher(sqlite3* database);
// Writes what the database holds into an empty file, ciphered in our own way. False when that fails; the
// engine's last error says why.
bool exportWithOwnCipher(sqlite3* database, const QString& file, const QString& password);

// To be said after a file was not found: empty, or that its folder lets nobody in, so that nobody knows.
QString closedFolderHint(const QString& path);
