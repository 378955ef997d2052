#include "survey/FormFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include "survey/SheetFault.h"
#include "text/RuntimeError.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

// A form of 1,197 pairs takes 50 KB as a spreadsheet, 100 KB as text and 0.3 MB as lines of hollin-sheet.
constexpr qint64 largestSpreadsheet = 32 << 20;
constexpr qint64 largestText = 4 << 20;
constexpr qint64 largestListing = 32 << 20;
constexpr int millisecondsBetweenBytes = 30'000; // its own limit of processor time is shorter

[[noreturn]] void refuseFile(const QString& why) {
    throw RuntimeError(ErrorCode::InvalidCall, why);
}

[[noreturn]] void refuseTooLarge() {
    refuseFile(u"大きすぎるため、読み込めません。調査票の回答用紙か確かめてください。"_s);
}

// Everything that the program lists, or as much as a form can have.
QByteArray listing(QProcess& reader) {
    QByteArray lines;
    while (reader.waitForReadyRead(millisecondsBetweenBytes)) {
        lines += reader.readAllStandardOutput();
        if (lines.size() <= largestListing) continue;
        reader.kill();
        reader.waitForFinished();
        refuseTooLarge();
    }
    reader.waitForFinished();
    return lines + reader.readAllStandardOutput();
}

void checkEnd(const QProcess& reader) {
    if (reader.error() == QProcess::FailedToStart)
        refuseFile(u"プログラム hollin-sheet を起動できません。インストールし直してください。\n%1"_s.arg(
            reader.program()));
    const auto fault = reader.exitStatus() == QProcess::NormalExit
                           ? static_cast<SheetFault>(reader.exitCode())
                           : SheetFault::Broken;
    switch (fault) {
        case SheetFault::None:
            return;
        case SheetFault::TooLarge:
            refuseTooLarge();
        case SheetFault::Macros:
            refuseFile(u"マクロが入っています。マクロのない .xlsx の形式で保存し直してください。"_s);
        default:
            refuseFile(u"壊れているか、.xlsx の形式ではないため、読み込めません。"_s);
    }
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

QList<FormSheet> sheetsOf(const QByteArray& lines) {
    QList<FormSheet> sheets;
    for (const auto& line : lines.split('\n')) {
        const auto fields = line.split('\t');
        if (fields[0] == "S" && fields.size() == 2) {
            sheets.append({unescaped(fields[1]), {}, {}});
        } else if (fields[0] == "C" && fields.size() == 5 && !sheets.isEmpty()) {
            const bool isFormula = fields[3] == "f";
            if (const auto text = unescaped(fields[4]); isFormula || !text.isEmpty())
                sheets.last().rows[fields[1].toInt()][fields[2].toInt()] = {text, isFormula};
        } else if (fields[0] == "M" && fields.size() == 5 && !sheets.isEmpty()) {
            sheets.last().merged.append({fields[1].toInt(), fields[2].toInt()});
        }
    }
    return sheets;
}

QList<FormSheet> readSpreadsheet(const QString& path) {
    QProcess reader;
    reader.setProgram(QCoreApplication::applicationDirPath() + u"/hollin-sheet"_s);
    reader.setArguments({path});
    reader.setStandardErrorFile(QProcess::nullDevice());
    reader.start(QIODevice::ReadOnly);
    const auto lines = listing(reader);
    checkEnd(reader);
    return sheetsOf(lines);
}

// Rows and cells of a text with commas: quoted cells may have commas, line ends and doubled quotes in them.
FormSheet textSheet(const QString& text) {
    FormSheet sheet;
    int row = 1;
    int column = 0;
    bool quoted = false;
    QString cell;
    const auto endCell = [&] {
        if (!cell.isEmpty()) sheet.rows[row][column] = {std::exchange(cell, {}), false};
        ++column;
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar letter = text[i];
        if (letter == u'"') {
            if (quoted && i + 1 < text.size() && text[i + 1] == u'"')
                cell += text[++i];
            else
                quoted = !quoted;
        } else if (!quoted && (letter == u',' || letter == u'\n')) {
            endCell();
            if (letter == u'\n') {
                ++row;
                column = 0;
            }
        } else if (quoted || letter != u'\r') {
            cell += letter;
        }
    }
    endCell();
    return sheet;
}

} // namespace

QList<FormSheet> readFormFile(const QString& path) {
    QFile file(path);
    if (!file.exists()) throw RuntimeError(ErrorCode::FileNotFound);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorCode::FileAccess, u"ファイルを開けません。"_s);
    const auto start = file.peek(8);
    if (start.isEmpty()) refuseFile(u"空のファイルです。"_s);
    if (start.startsWith("PK")) {
        if (file.size() > largestSpreadsheet) refuseTooLarge();
        return readSpreadsheet(path);
    }
    if (start.startsWith("\xd0\xcf\x11\xe0"))
        refuseFile(
            u"パスワードで保護されているか、古い形式 (.xls) です。パスワードのない .xlsx の形式で保存し直してください。"_s);
    if (file.size() > largestText) refuseTooLarge();
    const auto bytes = file.readAll();
    if (bytes.contains('\0')) refuseFile(u".xlsx でも .csv でもないため、読み込めません。"_s);
    return {textSheet(fromFileBytes(bytes))};
}
