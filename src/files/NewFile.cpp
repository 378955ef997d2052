#include "files/NewFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>

#include "files/TextFile.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

// Hidden, and like no name that a user would give: what bears it and is locked by nobody may be removed.
const QString temporaryName = u".hollin-"_s;
const QString letters = u"XXXXXX"_s; // six of the system's own choice take their place

// The engine's, beside a database that was being made.
QString journalOf(const QString& path) {
    return path + u"-journal"_s;
}

[[noreturn]] void refuse(const QString& what, const QString& path) {
    throw RuntimeError(ErrorCode::FileAccess, what + u'\n' + path);
}

[[noreturn]] void refuseWriting(const QString& path) {
    const QString reason = qt_error_string(errno);
    refuse(u"ファイルを書き込めません。ディスクの空き容量とフォルダーの権限を確かめてください。(%1)"_s.arg(
               reason),
           path);
}

// An open file below a temporary name, locked. A program that looks for abandoned files may take it in the
// moment before it is locked; then another one is made.
int openTemporary(QByteArray& path) {
    for (;;) {
        QByteArray name = path;
        const int handle = ::mkostemp(name.data(), O_CLOEXEC);
        if (handle < 0) return handle;
        struct stat state {};
        if (::flock(handle, LOCK_EX | LOCK_NB) == 0 && ::fstat(handle, &state) == 0 && state.st_nlink == 0) {
            ::close(handle);
            continue;
        }
        path = name;
        return handle;
    }
}

// False, with errno, when the name is taken: a rename would replace what stands there. File systems that know
// no such rename know hard links.
bool renameWithoutReplacing(const QByteArray& from, const QByteArray& to) {
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    return ::link(from.constData(), to.constData()) == 0 && ::unlink(from.constData()) == 0;
}

// A name is on the disk when its folder is. There are file systems that know no such thing, and folders that
// may be written but not read.
void syncFolder(const QString& path) {
    const QString folder = QFileInfo(path).path();
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0 && errno == EACCES) return;
    const bool isSynced = handle >= 0 && (::fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP);
    const int reason = errno;
    if (handle >= 0) ::close(handle);
    errno = reason;
    if (!isSynced) refuseWriting(path);
}

bool isAbandoned(int handle) {
    struct stat state {};
    return ::fstat(handle, &state) == 0 && S_ISREG(state.st_mode) && state.st_uid == ::geteuid() &&
           ::flock(handle, LOCK_EX | LOCK_NB) == 0;
}

} // namespace

NewFile::NewFile(const QString& target) : target_(nativePath(target)) {
    const QFileInfo info(target_);
    if (!info.dir().exists())
        throw RuntimeError(ErrorCode::PathNotFound, u"パスが見つかりません。\n%1"_s.arg(info.path()));
    QByteArray path = QFile::encodeName(info.path() + u'/' + temporaryName + letters);
    handle_ = openTemporary(path);
    if (handle_ < 0) refuse(u"ファイルを作成できません。(%1)"_s.arg(qt_error_string(errno)), target_);
    temporaryPath_ = QFile::decodeName(path);
}

NewFile::~NewFile() {
    if (!published_) {
        QFile::remove(temporaryPath_);
        QFile::remove(journalOf(temporaryPath_));
    }
    ::close(handle_);
}

void NewFile::write(const QByteArray& bytes) const {
    for (qsizetype done = 0; done < bytes.size();) {
        const auto written =
            ::write(handle_, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR) refuseWriting(target_);
        if (written > 0) done += written;
    }
}

void NewFile::syncContents() const {
    if (::fsync(handle_) != 0) refuseWriting(target_);
}

void NewFile::publish() {
    if (!publishAs(target_)) refuse(u"ファイルは既に存在します。"_s, target_);
}

bool NewFile::publishAs(const QString& path) {
    syncContents();
    if (!renameWithoutReplacing(QFile::encodeName(temporaryPath_), QFile::encodeName(path))) {
        if (errno == EEXIST) return false;
        refuse(u"ファイルに名前を付けられません。(%1)"_s.arg(qt_error_string(errno)), path);
    }
    published_ = true;
    syncFolder(path);
    return true;
}

void NewFile::replace() {
    const QFileInfo link(target_);
    const QFileInfo older(link.exists() ? link.canonicalFilePath() : target_); // the link itself stays
    const QByteArray path = QFile::encodeName(older.filePath());
    struct stat state {};
    if (::stat(path.constData(), &state) == 0) {
        errno = EACCES;
        if (!S_ISREG(state.st_mode) || !older.isWritable() || ::fchmod(handle_, state.st_mode & 0777) != 0)
            refuseWriting(target_);
    }
    syncContents();
    if (::rename(QFile::encodeName(temporaryPath_).constData(), path.constData()) != 0)
        refuseWriting(target_);
    published_ = true;
    syncFolder(older.filePath());
}

void removeAbandonedFiles(const QString& folder) {
    const QDir directory(nativePath(folder));
    for (const auto& name : directory.entryList({temporaryName + QString(letters.size(), u'?')},
                                                QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
        const QString path = directory.filePath(name);
        const int handle =
            ::open(QFile::encodeName(path).constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (handle < 0) continue;
        if (isAbandoned(handle)) {
            QFile::remove(path);
            QFile::remove(journalOf(path));
        }
        ::close(handle);
    }
}

void writeWholeFile(const QString& path, const QByteArray& bytes) {
    NewFile file(path);
    file.write(bytes);
    file.replace();
}
