// Runs the real programs as a script does.
#pragma once

#include <QString>
#include <QStringList>

struct Outcome {
    int exitCode; // -1 after a crash
    QString output;
    QString errors;
};

Outcome runProgram(const QString& program, const QStringList& arguments);
