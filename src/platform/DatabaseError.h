// Errors of the database engine as run-time errors.
#pragma once

#include <QString>

#include "platform/RuntimeError.h"

struct sqlite3;

// `what` failed, why in Japanese where the cause is a known one, and the engine's own words for its last
// error.
RuntimeError databaseError(sqlite3* database, const QString& what);
