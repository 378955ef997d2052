#include "platform/ApplicationDirectory.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString& chosenDirectory() {
    static QString directory;
    return directory;
}

} // namespace

QString applicationDirectory() {
    return chosenDirectory().isEmpty() ? QCoreApplication::applicationDirPath() : chosenDirectory();
}

void setApplicationDirectory(const QString& directory) {
    chosenDirectory() = QDir(directory).absolutePath();
}
