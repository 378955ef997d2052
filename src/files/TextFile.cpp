#include "files/TextFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "files/NewFile.h"
#include "text/RuntimeError.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestText = 1 << 20; // bytes: five hundred pages

} // namespace

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
    if (!info.isFile()) // one that waits for a writer would be waited for
        throw RuntimeError(ErrorCode::FileAccess,
                           u"普通のファイルではないため、読み込めません。\n%1"_s.arg(info.filePath()));
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorCode::FileAccess,
                           u"ファイルを開けません。%1\n%2"_s.arg(permissionHint, info.filePath()));
    const QByteArray bytes = file.read(largestText + 1);
    if (bytes.size() > largestText)
        throw RuntimeError(
            ErrorCode::FileAccess,
            u"ファイルが大きすぎるため、読み込めません（1 MB まで）。\n%1"_s.arg(info.filePath()));
    QStringList lines = fromFileBytes(bytes).remove(u'\r').split(u'\n');
    if (lines.last().isEmpty()) lines.removeLast(); // what follows the last line end is no line
    return lines;
}

void writeCodePageLines(const QString& path, const QStringList& lines) {
    QByteArray bytes;
    for (const auto& line : lines) bytes += toCodePage(line) + "\r\n";
    writeWholeFile(path, bytes);
}
