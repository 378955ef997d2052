#include "sheets/TableFile.h"

#include <QCoreApplication>
#include <QProcess>
#include <algorithm>

#include "sheets/Formats.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int millisecondsBetweenBytes = 40'000; // hollin-sheet waits for less before it gives a file up

QString inWords(SheetFault fault) {
    switch (fault) {
        case SheetFault::None:
            return {};
        case SheetFault::Missing:
            return RuntimeError(ErrorCode::FileNotFound).description();
        case SheetFault::NotReadable:
            return u"ファイルを開けません。"_s;
        case SheetFault::NotAFile:
            return u"普通のファイルではないため、読み込めません。"_s;
        case SheetFault::Empty:
            return u"空のファイルです。"_s;
        case SheetFault::TooLarge:
            return u"大きすぎるため、読み込めません。正しいファイルか確かめてください。"_s;
        case SheetFault::Macros:
            return u"マクロが入っています。マクロのない .xlsx の形式で保存し直してください。"_s;
        case SheetFault::Locked:
            return u"パスワードで保護されています。パスワードのない .xlsx の形式で保存し直してください。"_s;
        case SheetFault::OldOrLocked:
            return u"パスワードで保護されているか、古い形式 (.xls) です。パスワードのない .xlsx の形式で保存し直してください。"_s;
        case SheetFault::UnknownFormat:
            return u"この形式では読めません。.xlsx で保存し直してください。"_s;
        case SheetFault::Broken:
            break;
    }
    return u"壊れているため、読み込めません。"_s;
}

QString unescaped(QByteArrayView text) {
    QByteArray bytes;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size())
            bytes += text[i];
        else
            bytes += text[++i] == 't' ? '\t' : text[i] == 'n' ? '\n' : '\\';
    }
    return QString::fromUtf8(bytes);
}

QList<Table> tablesOf(const QByteArray& lines) {
    QList<Table> tables;
    for (const auto& line : lines.split('\n')) {
        const auto fields = line.split('\t');
        if (fields[0] == "S" && fields.size() == 2)
            tables.append({unescaped(fields[1]), {}, {}});
        else if (tables.isEmpty())
            continue;
        else if (fields[0] == "C" && fields.size() == 5 && fields[3].size() == 1)
            tables.last().rows[fields[1].toInt()][fields[2].toInt()] = {unescaped(fields[4]),
                                                                        static_cast<CellKind>(fields[3][0])};
        else if (fields[0] == "M" && fields.size() == 3)
            tables.last().merged.append({fields[1].toInt(), fields[2].toInt()});
    }
    return tables;
}

// Bytes of hollin-sheet, as many as there are up to `most`; fewer only when it has ended.
QByteArray bytesOf(QProcess& reader, qint64 most) {
    while (reader.bytesAvailable() < most && reader.waitForReadyRead(millisecondsBetweenBytes)) {
    }
    return reader.read(most);
}

TableFile nextFile(QProcess& reader, const QString& path) {
    while (!reader.canReadLine() && reader.waitForReadyRead(millisecondsBetweenBytes)) {
    }
    const auto head = reader.readLine().trimmed().split('\t');
    if (head.size() != 2) return {path, inWords(SheetFault::Broken), {}}; // it ended in between
    const auto bytes = head[1].toLongLong();
    const auto lines = bytesOf(reader, bytes);
    const auto fault = lines.size() == bytes ? static_cast<SheetFault>(head[0].toInt()) : SheetFault::Broken;
    return {path, inWords(fault), fault == SheetFault::None ? tablesOf(lines) : QList<Table>()};
}

void start(QProcess& reader, const QStringList& arguments) {
    reader.setProgram(QCoreApplication::applicationDirPath() + u"/hollin-sheet"_s);
    reader.setArguments(arguments);
    reader.setStandardErrorFile(QProcess::nullDevice());
    reader.start();
    if (!reader.waitForStarted())
        throw RuntimeError(
            ErrorCode::FileNotFound,
            u"プログラム hollin-sheet を起動できません。インストールし直してください。\n%1"_s.arg(
                reader.program()));
}

} // namespace

void readTableFiles(const QStringList& paths, const std::function<void(const TableFile&)>& take) {
    QProcess reader;
    start(reader, paths);
    reader.closeWriteChannel();
    for (const auto& path : paths) take(nextFile(reader, path));
    reader.waitForFinished();
}

QString tableFilePatterns() {
    // Only the texts: the readers stand in hollin-sheet alone.
    static constexpr auto patterns = [] {
        std::array<std::string_view, formats.size()> texts;
        std::ranges::transform(formats, texts.begin(), &Format::patterns);
        return texts;
    }();
    QStringList all;
    for (const auto& pattern : patterns)
        all << QString::fromLatin1(pattern.data(), static_cast<qsizetype>(pattern.size()));
    return all.join(u' ');
}
