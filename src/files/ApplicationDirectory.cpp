#include "files/ApplicationDirectory.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString& chosenDirectory() {
    static QString directory;
    return directory;
}

} // namespace

QString applicationDirectory() {
    if (!chosenDirectory().isEmpty()) return chosenDirectory();
    QString own = QCoreApplication::applicationDirPath();
    if (QFileInfo(own + u"/DB"_s).isDir()) return own;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/hollin"_s;
}

void setApplicationDirectory(const QString& directory) {
    chosenDirectory() = QDir(directory).absolutePath();
}
