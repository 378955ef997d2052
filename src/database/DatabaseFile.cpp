#include "database/DatabaseFile.h"

#include <fcntl.h>
#include <sqlcipher/sqlite3.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cerrno>
#include <cstdio>

#include "database/DatabaseEngine.h"
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

// The engine would take a journal that a crash has left for one of the new file, and write old pages into it.
void refuseForeignJournal(const QString& target) {
    const QString journal = target + u"-journal"_s;
    if (!QFileInfo::exists(journal)) return;
    refuse(
        u"前回の異常終了で残った記録があるため、この名前では作れません。\n"
        "この名前だったファイルを元の名前に戻し、hollin-database check で調べると、記録は片付きます。"
        "そのファイルがもうなければ、記録を削除してください。"_s,
        journal);
}

// False, with errno, when the name is taken: a rename would replace what stands there. File systems that know
// no such rename know hard links.
bool renameWithoutReplacing(const QByteArray& from, const QByteArray& to) {
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    return ::link(from.constData(), to.constData()) == 0 && ::unlink(from.constData()) == 0;
}

// A power cut must not take back the name of a finished file.
void syncFolder(const QString& folder) {
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return;
    ::fsync(handle);
    ::close(handle);
}

} // namespace

NewFile::NewFile(const QString& target) : target_(nativePath(target)) {
    const QFileInfo info(target_);
    if (!info.dir().exists())
        throw RuntimeError(ErrorCode::PathNotFound, u"パスが見つかりません。\n%1"_s.arg(info.path()));
    if (info.exists() || info.isSymLink()) refuse(u"ファイルは既に存在します。"_s, target_);
    refuseForeignJournal(target_);
    QTemporaryFile reserved(target_ + u".XXXXXX"_s);
    reserved.setAutoRemove(false);
    if (!reserved.open()) refuse(u"ファイルを作成できません。(%1)"_s.arg(reserved.errorString()), target_);
    temporaryPath_ = reserved.fileName();
}

NewFile::~NewFile() {
    if (published_) return;
    QFile::remove(temporaryPath_);
    QFile::remove(temporaryPath_ + u"-journal"_s);
}

void NewFile::publish() {
    if (!renameWithoutReplacing(QFile::encodeName(temporaryPath_), QFile::encodeName(target_)))
        refuse(errno == EEXIST ? u"ファイルは既に存在します。"_s
                               : u"ファイルに名前を付けられません。(%1)"_s.arg(qt_error_string(errno)),
               target_);
    published_ = true;
    syncFolder(QFileInfo(target_).path());
}

void createEncryptedDatabase(const QString& path, const QString& password) {
    QFile file(nativePath(path));
    if (file.size() > 0) refuse(u"ファイルは既に存在します。"_s, path);
    if (!file.open(QIODevice::ReadWrite, QFile::ReadOwner | QFile::WriteOwner))
        refuse(u"ファイルを作成できません。(%1)"_s.arg(file.errorString()), path);
    file.close();
    const auto database = openEncryptedFile(existingFile(path), password);
    // Writes the first page, so that the file is a database that opens with this password only.
    run(database, "PRAGMA user_version = 1", u"データベースを作成できません。\n%1"_s.arg(path));
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
