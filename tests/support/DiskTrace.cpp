#include "support/DiskTrace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QStringList trace;
int syncsUntilFailure = 0;

int traced(const QString& what, long result) {
    trace << what;
    return static_cast<int>(result);
}

int sync(int handle, long call) {
    struct stat state {};
    ::fstat(handle, &state);
    const QString what = S_ISDIR(state.st_mode) ? u"folder"_s : u"contents"_s;
    if (syncsUntilFailure > 0 && --syncsUntilFailure == 0) {
        errno = EIO;
        return traced(what + u" failed"_s, -1);
    }
    return traced(what, ::syscall(call, handle));
}

} // namespace

// In the place of the C library's own, for the program and for its libraries.
extern "C" {
int fsync(int handle) {
    return sync(handle, SYS_fsync);
}
int fdatasync(int handle) {
    return sync(handle, SYS_fdatasync);
}
int rename(const char* from, const char* to) noexcept {
    return traced(u"name"_s, ::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned int flags) noexcept {
    return traced(u"name"_s, ::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}
int unlink(const char* path) noexcept {
    return traced(u"removal"_s, ::syscall(SYS_unlink, path));
}
}

QStringList diskTrace(const std::function<void()>& body, int failingSync) {
    trace.clear();
    syncsUntilFailure = failingSync;
    body();
    syncsUntilFailure = 0;
    return trace;
}
