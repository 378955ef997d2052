// The directory beside whose contents the program works: DB/ and file/ stand there.
#pragma once

#include <QString>

// The directory of the executable, unless another one was set; without trailing separator.
QString applicationDirectory();
void setApplicationDirectory(const QString& directory);
