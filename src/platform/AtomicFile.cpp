#include "platform/AtomicFile.h"

#include "platform/Descriptor.h"
#include "platform/SystemCalls.h"
#include "platform/TemporaryFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <system_error>

namespace veridane {
namespace {

using Failure = std::optional<std::string>;

constexpr int maxLinks = 40; // as many as the kernel follows
constexpr mode_t newFileMode = 0666;
constexpr mode_t privateMode = 0600;    // until the new file has the old one's group
constexpr mode_t permissionBits = 0777; // set-user-ID does not pass on to new content

Failure systemFailure() {
    return std::generic_category().message(errno);
}

Failure stopFailure() {
    return std::generic_category().message(EINTR);
}

Failure writeAll(const Descriptor& file, std::string_view content,
                 const std::stop_token& stop = {}) {
    constexpr std::size_t largestPiece = 1 << 20; // between two looks at the stop token
    while (!content.empty()) {
        if (stop.stop_requested())
            return stopFailure();
        const ssize_t written =
            ::write(file.get(), content.data(), std::min(content.size(), largestPiece));
        if (written < 0 && errno != EINTR)
            return systemFailure();
        content.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return std::nullopt;
}

std::string directoryOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return path.substr(0, slash + 1);
}

/// Where a link leads, and the links behind it. The target need not exist.
std::optional<std::string> behindLinks(std::string path) {
    for (int links = 0; links <= maxLinks; ++links) {
        std::array<char, PATH_MAX> target;
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0)
            return path;
        const std::string_view text(target.data(), static_cast<std::size_t>(length));
        path =
            text.starts_with('/') ? std::string(text) : directoryOf(path) + "/" + std::string(text);
    }
    errno = ELOOP;
    return std::nullopt;
}

/// Without this a power cut may bring the old file back. No failure, because either is whole.
void flushDirectory(const std::string& path) {
    const Descriptor directory(
        uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (directory)
        ::fsync(directory.get());
}

Failure writeInPlace(const std::string& path, std::string_view content) {
    Descriptor file = openForWriting(path);
    if (!file)
        return systemFailure();
    if (auto failure = writeAll(file, content))
        return failure;
    return closeChecked(std::move(file)) ? std::nullopt : systemFailure();
}

/// Only the superuser may give a file away; its owner may still pass on a group of his.
bool hasTakenGroup(int file, const struct stat& old) {
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    if (::fchown(file, old.st_uid, old.st_gid) == 0 || ::fchown(file, sameOwner, old.st_gid) == 0)
        return true;
    struct stat status {};
    return ::fstat(file, &status) == 0 && status.st_gid == old.st_gid;
}

/// As far as the system lets us: a file system without owners and permissions refuses, and then
/// none are missing.
void takeOwnerAndMode(int file, const struct stat& old) {
    mode_t mode = old.st_mode & permissionBits;
    // Whoever is in another group was one of the others until now.
    if (!hasTakenGroup(file, old))
        mode = (mode & ~mode_t{S_IRWXG}) | ((mode & S_IRWXO) << 3);
    static_cast<void>(::fchmod(file, mode));
}

/// `mode` is that of a file without an old one to hand on its own.
Failure replaceFile(const std::string& path, const std::optional<struct stat>& old, mode_t mode,
                    std::string_view content, const std::stop_token& stop = {}) {
    const std::string directory = directoryOf(path);
    TemporaryFile temporary(directory, old ? privateMode : mode);
    if (!temporary.file())
        return systemFailure();
    if (old)
        takeOwnerAndMode(temporary.file().get(), *old);

    if (auto failure = writeAll(temporary.file(), content, stop))
        return failure;
    if (uninterrupted([&] { return ::fsync(temporary.file().get()); }) != 0)
        return systemFailure();
    if (stop.stop_requested()) // flushing may have taken long
        return stopFailure();
    if (!temporary.moveTo(path))
        return systemFailure();
    flushDirectory(directory);
    return std::nullopt;
}

} // namespace

std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view content,
                                               const std::stop_token& stop) {
    struct stat status {};
    const bool exists = ::stat(path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT)
        return systemFailure();
    // Asked before any link is read: what /dev/stdout leads to may have no name to be found by.
    if (exists && !S_ISREG(status.st_mode))
        return writeInPlace(path, content);

    const auto target = behindLinks(path);
    if (!target)
        return systemFailure();
    return replaceFile(*target, exists ? std::optional(status) : std::nullopt, newFileMode, content,
                       stop);
}

bool isWrittenInPlace(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

std::optional<std::string> replaceFileAtomically(const std::string& path,
                                                 std::string_view content) {
    struct stat status {};
    const bool hasOld = ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
    return replaceFile(path, hasOld ? std::optional(status) : std::nullopt, privateMode, content);
}

} // namespace veridane
