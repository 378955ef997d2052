// What the tests of several rooms use.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

// How one of the real programs ended, run as a script does.
struct Outcome {
    int exitCode; // -1 after a crash, or when it could not be started or does not end
    QString output;
    QString errors;
};
Outcome runProgram(const QString& program, const QStringList& arguments);

// The error that the body raised; number 0 when there was none.
struct Raised {
    int number = 0;
    QString description;
};
Raised raisedBy(const std::function<void()>& body);

// Empty when the file cannot be read.
QByteArray bytesOf(const QString& path);
