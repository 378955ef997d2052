#include "support/Helpers.h"

#include <QFile>
#include <QProcess>

#include "text/RuntimeError.h"

// What the slowest of the programs takes, under sanitizers on a busy machine, with room.
constexpr int mostMilliseconds = 120'000;

Outcome runProgram(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    const bool ended = process.waitForFinished(mostMilliseconds);
    return {ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

Raised raisedBy(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        return {error.number(), error.description()};
    }
    return {};
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
