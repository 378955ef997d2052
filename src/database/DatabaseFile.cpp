#include "database/DatabaseFile.h"

#include <sqlcipher/sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include "database/DatabaseEngine.h"
#include "files/NewFile.h"
#include "files/TextFile.h"

using namespace Qt::StringLiterals;

namespace {

void run(const Database& database, const char* sql, const QString& what) {
    if (sqlite3_exec(database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw databaseError(database.get(), what);
}

QString existingFile(const QString& path) {
    QString native = nativePath(path);
    if (!QFileInfo(native).isFile())
        throw RuntimeError(ErrorCode::FileNotFound,
                           u"ファイルが見つかりません。\n%1"_s.arg(native) + closedFolderHint(native));
    return native;
}

[[noreturn]] void refuse(const QString& what, const QString& path) {
    throw RuntimeError(ErrorCode::FileAccess, what + u'\n' + path);
}

// The engine writes the beginning of a journal last, when all that it needs to undo a change is on the disk:
// one that begins with zero undoes nothing.
bool isCold(const QString& journal) {
    QFile file(journal);
    char first = 0;
    return file.open(QIODevice::ReadOnly) && (file.read(&first, 1) == 0 || first == 0);
}

} // namespace

QString nameOfNewDatabase(const QString& path) {
    const QFileInfo info(nativePath(path));
    if (info.exists() || info.isSymLink()) refuse(u"ファイルは既に存在します。"_s, info.filePath());
    const QString journal = info.filePath() + u"-journal"_s;
    if (!QFileInfo::exists(journal) || (isCold(journal) && QFile::remove(journal))) return info.filePath();
    refuse(
        u"前回の異常終了で残った記録があるため、この名前では作れません。\n"
        "この名前だったファイルを元の名前に戻し、hollin-database check で調べると、記録は片付きます。"
        "そのファイルがもうなければ、記録を削除してください。"_s,
        journal);
}

void createEncryptedDatabase(const QString& path, const QString& password) {
    QFile file(nativePath(path));
    if (file.size() > 0) refuse(u"ファイルは既に存在します。"_s, path);
    if (!file.open(QIODevice::ReadWrite, QFile::ReadOwner | QFile::WriteOwner))
        refuse(u"ファイルを作成できません。(%1)"_s.arg(file.errorString()), path);
    file.close();
    const auto database = openEncryptedFile(existingFile(path), password);
    // Writes the first page, so that the file is a database that opens with this password only.
    run(database, "PRAGMA user_version = 0", u"データベースを作成できません。\n%1"_s.arg(path));
}

void removeColdJournal(const QString& path, const QString& password) {
    const auto database = openEncryptedFile(existingFile(path), password);
    const QString journal =
        QString::fromUtf8(sqlite3_db_filename(database.get(), "main")) + u"-journal"_s; // links followed
    if (!QFileInfo::exists(journal)) return;
    // Whoever has the file to himself knows that no journal is being written, and has applied a hot one.
    if (sqlite3_exec(database.get(), "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK) return;
    if (isCold(journal)) QFile::remove(journal);
    sqlite3_exec(database.get(), "COMMIT", nullptr, nullptr, nullptr);
}

QStringList databaseFaults(const QString& path, const QString& password) {
    const auto database = openEncryptedFile(existingFile(path), password);
    QStringList faults;
    // A row may begin with a line that only names the database.
    const auto collect = [](void* list, int, char** columns, char**) {
        for (const auto& line : QString::fromUtf8(columns[0]).split(u'\n'))
            if (line != u"ok" && !line.startsWith(u"***")) static_cast<QStringList*>(list)->append(line);
        return 0;
    };
    if (sqlite3_exec(database.get(), "PRAGMA integrity_check", collect, &faults, nullptr) != SQLITE_OK)
        faults << databaseError(database.get(), u"データベースを最後まで読めません。"_s).description();
    return faults;
}

void copyDatabase(const QString& path, const NewFile& copy, const QString& password) {
    const auto source = openEncryptedFile(existingFile(path), password);
    const QString failure = u"データベースの処理に失敗しました。"_s;
    if (!hasOwnCipher(source.get())) {
        if (!exportWithOwnCipher(source.get(), copy.temporaryPath(), password))
            throw databaseError(source.get(), failure);
        return;
    }
    const auto target = openEncryptedFile(copy.temporaryPath(), password);
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source.get(), "main");
    if (backup == nullptr) throw databaseError(target.get(), failure);
    const bool copied = sqlite3_backup_step(backup, -1) == SQLITE_DONE;
    if (sqlite3_backup_finish(backup) != SQLITE_OK || !copied) throw databaseError(target.get(), failure);
}
