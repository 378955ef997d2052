// Reading and writing whole text files.
#pragma once

#include <QString>
#include <QStringList>

// "\" as the program composes paths, turned into the separator of this system.
QString nativePath(const QString& path);

// Behind "cannot be opened".
inline const QString permissionHint = QStringLiteral("フォルダーとファイルの権限を確かめてください。");

// The lines of a text file, without their ends. Raises error 53 when there is no such file, 76 when its
// folder is missing, 75 when it cannot be read, is no regular file, or has more than 1 MB.
QStringList readLines(const QString& path);

// Writes the lines in windows-31j with carriage return and line feed. The old file stays as it was unless the
// whole new one is on the disk. Raises error 76 when the folder is missing, 75 when it cannot be written, 5
// for a character that the code page lacks.
void writeCodePageLines(const QString& path, const QStringList& lines);
