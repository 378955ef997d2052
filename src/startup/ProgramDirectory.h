// The directory with a user's data: the folder DB with the database, and the folder file with the message
// files.
#pragma once

#include <QString>

enum class Contents { Sample, Empty };

// Makes a database file with the program's tables, and with the sample problem or only the evaluator that the
// evaluator screen needs to propose the next number. Raises an error when it exists or cannot be made.
void createDatabase(const QString& file, Contents contents);

bool hasDatabase(const QString& directory);

// Makes the message files that are missing. Those that are there stay as they are, since users edit them.
// Raises error 75 where that is not possible.
void createMessageFiles(const QString& directory);

// Makes what is missing of the directory, the database last. Raises error 75 or 76 where that is not
// possible.
void createProgramDirectory(const QString& directory, Contents contents);
