// The command line of the program with the windows.
#pragma once

#include <QStringList>
#include <optional>

// Answers what can be answered without a window, help, version and mistakes, and returns the exit code;
// nothing when the program is to start, in the directory that was given.
std::optional<int> answerCommandLine(const QStringList& arguments);

// Whether help or the version is all that is asked for, which then works without a display, too.
bool asksForTextOnly(int argc, char* argv[]);
