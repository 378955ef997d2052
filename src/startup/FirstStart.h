// The first start of the program for a user.
#pragma once

#include <QString>

// Whether the program can start in the directory. Where no database stands yet, the user is asked whether to
// begin with the sample problem or with an empty database, and it is made; false when the user would rather
// not. Raises an error when it cannot be made.
bool readyToStart(const QString& directory);
