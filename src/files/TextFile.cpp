#include "files/TextFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "text/RuntimeError.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

QString nativePath(const QString& path) {
    QString native = path;
    return native.replace(u'\\', u'/');
}

QStringList readLines(const QString& path) {
    const QFileInfo info(nativePath(path));
    if (!info.dir().exists())
        throw RuntimeError(ErrorCode::PathNotFound, u"パスが見つかりません。\n%1"_s.arg(info.path()));
    if (!info.exists())
        throw RuntimeError(ErrorCode::FileNotFound, u"ファイルが見つかりません。\n%1"_s.arg(info.filePath()));
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorCode::FileAccess,
                           u"ファイルを開けません。%1\n%2"_s.arg(permissionHint, info.filePath()));
    QStringList lines = fromFileBytes(file.readAll()).remove(u'\r').split(u'\n');
    if (lines.last().isEmpty()) lines.removeLast(); // what follows the last line end is no line
    return lines;
}

void writeCodePageLines(const QString& path, const QStringList& lines) {
    QByteArray bytes;
    for (const auto& line : lines) bytes += toCodePage(line) + "\r\n";
    writeWholeFile(path, bytes);
}

void writeWholeFile(const QString& path, const QByteArray& bytes) {
    const QFileInfo info(nativePath(path));
    if (!info.dir().exists())
        throw RuntimeError(ErrorCode::PathNotFound, u"パスが見つかりません。\n%1"_s.arg(info.path()));
    QSaveFile file(info.filePath());
    // The last bytes leave the buffer when it is flushed, and commit() alone does not notice a full disk
    // then.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        throw RuntimeError(
            ErrorCode::FileAccess,
            u"ファイルを書き込めません。ディスクの空き容量とフォルダーの権限を確かめてください。\n%1"_s.arg(
                info.filePath()));
}
