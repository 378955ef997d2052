// The database engine: opening an encrypted file, errors as run-time errors.
#pragma once

#include <QString>
#include <memory>

#include "platform/RuntimeError.h"

struct sqlite3;

struct DatabaseCloser {
    void operator()(sqlite3* database) const;
};
using Database = std::unique_ptr<sqlite3, DatabaseCloser>;

// An existing file (an empty one becomes a database), unlocked with the password, nothing readable beside it.
// Raises a database error when it is no database, damaged at its beginning, or the password is wrong.
Database openEncryptedFile(const QString& path, const QString& password);

// `what` failed, why in Japanese where the cause is a known one, and the engine's own words for its last
// error.
RuntimeError databaseError(sqlite3* database, const QString& what);
