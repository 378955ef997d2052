// The directory beside whose contents the program works: DB/ and file/ stand there.
#pragma once

#include <QString>

// The one that was set; else that of the executable when DB stands there, so that a directory with program
// and data can be carried anywhere; else the user's own, below the home folder, which may not exist yet.
// Without trailing separator.
QString applicationDirectory();
void setApplicationDirectory(const QString& directory);
