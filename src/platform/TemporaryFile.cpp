#include "platform/TemporaryFile.h"

#include "platform/FileStatus.h"
#include "platform/SystemCalls.h"
#include "platform/Uuid.h"

#include <dirent.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <memory>
#include <string_view>
#include <utility>

namespace veridane {
namespace {

constexpr std::string_view prefix = ".veridane-"; // a UUID follows
constexpr int maxAttempts = 16;                   // each lost to somebody who was quicker

struct DirectoryCloser {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

bool isTemporaryName(std::string_view name) {
    return name.starts_with(prefix) && Uuid::parse(name.substr(prefix.size()));
}

/// Closing the file gives the lock back, also when the program is killed.
bool lock(const Descriptor& file) {
    return uninterrupted([&] { return ::flock(file.get(), LOCK_EX | LOCK_NB); }) == 0;
}

bool isRegular(const Descriptor& file) {
    const auto status = FileStatus::of(file.get());
    return status && status->type() == EntryType::regularFile;
}

} // namespace

TemporaryFile::TemporaryFile(const std::string& directory, mode_t mode) {
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        m_path = directory + "/" + std::string(prefix) + Uuid::random().text();
        m_file = openForWriting(m_path, O_CREAT | O_EXCL | O_NOFOLLOW, mode);
        if (!m_file || isOurs())
            break;
    }
    m_exists = static_cast<bool>(m_file);
}

TemporaryFile::~TemporaryFile() {
    if (m_exists)
        ::unlink(m_path.c_str());
}

/// Whoever removes abandoned files may have come between the making and the locking.
bool TemporaryFile::isOurs() const {
    if (!lock(m_file))
        return errno != EWOULDBLOCK; // a file system without locks, where nobody can take it
    struct stat status {};
    return ::fstat(m_file.get(), &status) == 0 && status.st_nlink > 0;
}

bool TemporaryFile::moveTo(const std::string& path) {
    // A second descriptor, since closing the last one would give the lock back too early.
    Descriptor second(::fcntl(m_file.get(), F_DUPFD_CLOEXEC, 0));
    if (!second || !closeChecked(std::move(second)))
        return false;
    if (::rename(m_path.c_str(), path.c_str()) != 0)
        return false;
    m_exists = false;
    return true;
}

void removeAbandonedFiles(const std::string& directory) {
    const std::unique_ptr<DIR, DirectoryCloser> listing(::opendir(directory.c_str()));
    if (!listing)
        return;
    while (const dirent* entry = ::readdir(listing.get())) {
        if (!isTemporaryName(entry->d_name))
            continue;
        const std::string path = directory + "/" + entry->d_name;
        // For writing, because network file systems give such a lock for nothing else.
        const Descriptor file = openForWriting(path, O_NOFOLLOW | O_NONBLOCK);
        if (file && isRegular(file) && lock(file))
            ::unlink(path.c_str());
    }
}

} // namespace veridane
