// hollin-sheet FILE…: the cells of spreadsheet and text files, on standard output. Such a file comes from
// outside and may be anything: a few kilobytes that unpack to gigabytes, or bytes that make a library
// stumble. So each is read by a process of its own, with little memory and time, that can open nothing, and
// what happens to it happens to no work of the user's and to no other file. This process takes over the bytes
// of a file and what the other lists, and looks into neither.
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>

#include "sheets/Formats.h"
#include "sheets/reader/Archive.h"
#include "sheets/reader/Listing.h"
#include "sheets/reader/Source.h"

namespace {

// What a form of the largest problem needs, many times over: 50 KB, its cells 14 MB, 0.3 MB of lines.
constexpr std::size_t largestFile = 32U << 20U;
constexpr std::size_t largestListing = 32U << 20U;
constexpr rlim_t mostMemory = 384U << 20U; // bytes of address space
constexpr rlim_t mostSeconds = 20;
constexpr int millisecondsBetweenBytes = 30'000;

// Adds what there is to read; none when there is more than `most` in all or nothing comes for long.
bool readAll(int from, std::size_t most, std::string& bytes) {
    std::array<char, 64U << 10U> piece;
    pollfd wait{from, POLLIN, 0};
    while (poll(&wait, 1, millisecondsBetweenBytes) > 0) {
        const auto size = read(from, piece.data(), piece.size());
        if (size <= 0) return size == 0;
        bytes.append(piece.data(), static_cast<std::size_t>(size));
        if (bytes.size() > most) return false;
    }
    return false;
}

SheetFault takeBytes(const std::string& path, std::string& bytes) {
    // A pipe that nobody writes to would hold up the opening.
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0) return errno == ENOENT || errno == ENOTDIR ? SheetFault::Missing : SheetFault::NotReadable;
    struct stat about {};
    auto fault = SheetFault::None;
    if (fstat(file, &about) != 0 || !S_ISREG(about.st_mode))
        fault = SheetFault::NotAFile;
    else if (!readAll(file, largestFile, bytes))
        fault = bytes.size() > largestFile ? SheetFault::TooLarge : SheetFault::NotReadable;
    close(file);
    return fault;
}

SheetFault readTables(const std::string& bytes) {
    try {
        if (bytes.empty()) return SheetFault::Empty;
        if (bytes.starts_with("\xd0\xcf\x11\xe0")) return SheetFault::OldOrLocked;
        std::optional<Archive> archive;
        if (bytes.starts_with("PK")) archive.emplace(bytes);
        const Source source{bytes, archive ? &*archive : nullptr};
        const auto* format =
            std::ranges::find_if(formats, [&](const Format& row) { return row.recognises(source); });
        if (format == formats.end()) return SheetFault::UnknownFormat;
        Listing listing;
        format->read(source, listing);
        return SheetFault::None;
    } catch (const Refusal& refusal) {
        return refusal.fault;
    } catch (const std::bad_alloc&) {
        return SheetFault::TooLarge;
    } catch (const std::length_error&) {
        return SheetFault::TooLarge;
    } catch (const std::exception&) {
        return SheetFault::Broken;
    }
}

void confine() {
    const auto limit = [](auto resource, rlim_t most) {
        const rlimit both{most, most};
        setrlimit(resource, &both);
    };
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    limit(RLIMIT_CPU, mostSeconds);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, 0);
#ifndef __SANITIZE_ADDRESS__ // its shadow memory takes terabytes of addresses, its reports files
    limit(RLIMIT_NOFILE, 0);
    limit(RLIMIT_AS, mostMemory);
#endif
}

[[noreturn]] void readConfined(const std::string& bytes, int to) {
    dup2(to, STDOUT_FILENO);
    confine();
    const auto fault = readTables(bytes);
    std::fflush(stdout);
    _exit(static_cast<int>(fault)); // nothing else of this process is to happen twice
}

// A crash is no fault of the file's alone: whoever starts this by hand sees it here.
SheetFault faultOf(int status) {
    if (WIFEXITED(status) && WEXITSTATUS(status) <= static_cast<int>(SheetFault::UnknownFormat))
        return static_cast<SheetFault>(WEXITSTATUS(status));
    const bool timeOver = WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL);
    if (timeOver) return SheetFault::TooLarge;
    std::fprintf(stderr, "hollin-sheet: the reader ended with status %#x\n", static_cast<unsigned>(status));
    return SheetFault::Broken;
}

SheetFault list(const std::string& path, std::string& listing) {
    std::string bytes;
    if (const auto fault = takeBytes(path, bytes); fault != SheetFault::None) return fault;
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return SheetFault::Broken;
    const auto reader = fork();
    if (reader == 0) readConfined(bytes, ends[1]);
    close(ends[1]);
    const bool whole = reader > 0 && readAll(ends[0], largestListing, listing);
    close(ends[0]);
    if (reader < 0) return SheetFault::Broken;
    if (!whole) kill(reader, SIGKILL);
    int status = 0;
    while (waitpid(reader, &status, 0) < 0 && errno == EINTR) {
    }
    return whole ? faultOf(status) : SheetFault::TooLarge;
}

} // namespace

int main(int argc, char* argv[]) {
    for (int file = 1; file < argc; ++file) {
        std::string listing;
        const auto fault = list(argv[file], listing);
        if (fault != SheetFault::None) listing.clear();
        std::printf("%d\t%zu\n", static_cast<int>(fault), listing.size());
        std::fwrite(listing.data(), 1, listing.size(), stdout);
        std::fflush(stdout);
    }
    return EXIT_SUCCESS;
}
