#include "platform/AtomicFile.h"

#include "platform/Descriptor.h"
#include "platform/Uuid.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

Failure systemFailure(int error = errno) {
    return std::generic_category().message(error);
}

/// Calls until no signal comes in between.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

Descriptor openForWriting(const std::string& path, int flags, mode_t mode = 0) {
    return Descriptor(uninterrupted(
        [&] { return ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | flags, mode); }));
}

Failure writeAll(const Descriptor& file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written =
            uninterrupted([&] { return ::write(file.get(), content.data(), content.size()); });
        if (written < 0)
            return systemFailure();
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return std::nullopt;
}

/// Network file systems report a full disk only here.
Failure closeChecked(Descriptor& file) {
    // Not repeated after a signal: the descriptor is gone all the same.
    if (::close(file.release()) != 0 && errno != EINTR)
        return systemFailure();
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

/// A file that is gone again unless it has taken its place.
class TemporaryFile {
public:
    TemporaryFile(const std::string& directory, mode_t mode)
        : m_path(directory + "/.veridane-" + Uuid::random().text()),
          m_file(openForWriting(m_path, O_CREAT | O_EXCL | O_NOFOLLOW, mode)), m_exists(m_file) {}
    ~TemporaryFile() {
        if (m_exists)
            ::unlink(m_path.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] Descriptor& file() { return m_file; }

    Failure moveTo(const std::string& path) {
        if (::rename(m_path.c_str(), path.c_str()) != 0)
            return systemFailure();
        m_exists = false;
        return std::nullopt;
    }

private:
    std::string m_path;
    Descriptor m_file;
    bool m_exists;
};

/// Without this a power cut may bring the old file back. No failure, because either is whole.
void flushDirectory(const std::string& path) {
    const Descriptor directory(
        uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (directory)
        ::fsync(directory.get());
}

Failure writeInPlace(const std::string& path, std::string_view content) {
    Descriptor file = openForWriting(path, 0);
    if (!file)
        return systemFailure();
    if (auto failure = writeAll(file, content))
        return failure;
    return closeChecked(file);
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

Failure replaceFile(const std::string& path, const std::optional<struct stat>& old,
                    std::string_view content) {
    const std::string directory = directoryOf(path);
    TemporaryFile temporary(directory, old ? privateMode : newFileMode);
    if (!temporary.file())
        return systemFailure();
    if (old)
        takeOwnerAndMode(temporary.file().get(), *old);

    if (auto failure = writeAll(temporary.file(), content))
        return failure;
    if (uninterrupted([&] { return ::fsync(temporary.file().get()); }) != 0)
        return systemFailure();
    if (auto failure = closeChecked(temporary.file()))
        return failure;
    if (auto failure = temporary.moveTo(path))
        return failure;
    flushDirectory(directory);
    return std::nullopt;
}

} // namespace

std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view content) {
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
    return replaceFile(*target, exists ? std::optional(status) : std::nullopt, content);
}

} // namespace veridane
