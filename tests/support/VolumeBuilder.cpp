#include "support/VolumeBuilder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace veridane::test {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

std::vector<std::string> namesIn(const Descriptor& folder) {
    std::vector<std::string> names;
    DIR* stream = ::fdopendir(::openat(folder.get(), ".", folderFlags));
    if (!stream)
        return names;
    while (const dirent* entry = ::readdir(stream)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            names.emplace_back(name);
    }
    ::closedir(stream);
    return names;
}

/// Every folder is moved up to the root before it is emptied: no path grows long, no call nests and
/// two folders are open at a time, however deep a test has made its tree.
void removeTree(const std::string& path) {
    ::chmod(path.c_str(), S_IRWXU);
    const Descriptor root(::open(path.c_str(), folderFlags));
    std::vector<std::string> pending;
    int moved = 0;
    const auto empty = [&](const Descriptor& folder) {
        for (const std::string& name : namesIn(folder)) {
            if (::unlinkat(folder.get(), name.c_str(), 0) == 0)
                continue;
            // A folder. Without all rights on it, it can be neither moved nor listed.
            ::fchmodat(folder.get(), name.c_str(), S_IRWXU, 0);
            const std::string movedName = ".removal-" + std::to_string(moved++);
            if (::renameat(folder.get(), name.c_str(), root.get(), movedName.c_str()) == 0)
                pending.push_back(movedName);
        }
    };
    empty(root);
    while (!pending.empty()) {
        const std::string name = std::move(pending.back());
        pending.pop_back();
        empty(Descriptor(::openat(root.get(), name.c_str(), folderFlags)));
        ::unlinkat(root.get(), name.c_str(), AT_REMOVEDIR);
    }
    ::rmdir(path.c_str());
}

bool writeAll(int file, const Bytes& content) {
    std::size_t written = 0;
    while (written < content.size()) {
        const ssize_t count = ::write(file, content.data() + written, content.size() - written);
        if (count <= 0)
            return false;
        written += static_cast<std::size_t>(count);
    }
    return true;
}

} // namespace

VolumeBuilder::VolumeBuilder() : m_isTemporary(true) {
    std::error_code error;
    m_root = (std::filesystem::temp_directory_path(error) / "veridane-volume-XXXXXX").string();
    check(::mkdtemp(m_root.data()) != nullptr, "");
    openRoot();
}

VolumeBuilder::VolumeBuilder(const std::string& directory)
    : m_root(directory), m_isTemporary(false) {
    std::error_code error; // opening what is not there tells the reason
    std::filesystem::create_directories(directory, error);
    openRoot();
}

VolumeBuilder::~VolumeBuilder() {
    if (m_isTemporary)
        removeTree(m_root);
}

void VolumeBuilder::openRoot() {
    m_rootFolder = Descriptor(::open(m_root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    check(static_cast<bool>(m_rootFolder), "");
}

void VolumeBuilder::check(bool succeeded, std::string_view path) {
    const int error = errno;
    if (succeeded || m_failure)
        return;
    m_failure = hostPath(path) + ": " + std::generic_category().message(error);
    if (m_isTemporary) {
        std::fprintf(stderr, "%s\n", m_failure->c_str());
        std::abort();
    }
}

std::string VolumeBuilder::hostPath(std::string_view path) const {
    return m_root + std::string(path);
}

/// Opens a folder of the volume, made where missing, one name at a time: the whole path may be
/// longer than the system takes.
int VolumeBuilder::enter(std::string_view path) {
    if (m_lastFolder && path == m_lastFolderPath)
        return m_lastFolder.get();
    Descriptor folder(::openat(m_rootFolder.get(), ".", folderFlags));
    std::size_t end = 0;
    while (end < path.size()) {
        const std::size_t start = path.find_first_not_of('/', end);
        if (start == std::string_view::npos)
            break;
        end = std::min(path.find('/', start), path.size());
        const std::string name(path.substr(start, end - start));
        ::mkdirat(folder.get(), name.c_str(), 0755);
        folder = Descriptor(::openat(folder.get(), name.c_str(), folderFlags));
        if (!folder)
            break;
    }
    check(static_cast<bool>(folder), path);
    m_lastFolder = std::move(folder);
    m_lastFolderPath = path;
    return m_lastFolder.get();
}

VolumeBuilder::Place VolumeBuilder::place(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    const bool hasFolder = slash != std::string_view::npos;
    std::string name(hasFolder ? path.substr(slash + 1) : path);
    return {enter(hasFolder ? path.substr(0, slash) : ""), std::move(name)};
}

VolumeBuilder& VolumeBuilder::folder(std::string_view path) {
    enter(path);
    return *this;
}

VolumeBuilder& VolumeBuilder::file(std::string_view path, const Bytes& content, std::int64_t size) {
    const auto [folder, name] = place(path);
    ::unlinkat(folder, name.c_str(), 0);
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    const Descriptor file(::openat(folder, name.c_str(), flags, 0644));
    check(file && writeAll(file.get(), content), path);
    if (size > static_cast<std::int64_t>(content.size()))
        check(::ftruncate(file.get(), size) == 0, path);
    return *this;
}

VolumeBuilder& VolumeBuilder::file(std::string_view path, std::string_view text) {
    return file(path, Bytes(text.begin(), text.end()));
}

VolumeBuilder& VolumeBuilder::plist(std::string_view path, const PlistValue& root, PlistForm form) {
    return file(path, plistFile(root, form));
}

VolumeBuilder& VolumeBuilder::link(std::string_view path, const std::string& target) {
    const auto [folder, name] = place(path);
    check(::symlinkat(target.c_str(), folder, name.c_str()) == 0, path);
    return *this;
}

VolumeBuilder& VolumeBuilder::fifo(std::string_view path) {
    const auto [folder, name] = place(path);
    check(::mkfifoat(folder, name.c_str(), 0644) == 0, path);
    return *this;
}

VolumeBuilder& VolumeBuilder::socket(std::string_view path) {
    const auto [folder, name] = place(path);
    check(::mknodat(folder, name.c_str(), S_IFSOCK | 0644, 0) == 0, path);
    return *this;
}

VolumeBuilder& VolumeBuilder::modified(std::string_view path, std::int64_t seconds) {
    const auto [folder, name] = place(path);
    const timespec time{.tv_sec = seconds, .tv_nsec = 0};
    const timespec times[] = {time, time};
    check(::utimensat(folder, name.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0, path);
    return *this;
}

BundleBuilder VolumeBuilder::bundle(std::string path) {
    return BundleBuilder(*this, std::move(path));
}

} // namespace veridane::test
