#include "support/VolumeBuilder.h"

#include "platform/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>
#include <utility>

namespace veridane::test {

namespace fs = std::filesystem;

VolumeBuilder::VolumeBuilder() : m_isTemporary(true) {
    m_root = (fs::temp_directory_path() / "veridane-volume-XXXXXX").string();
    check(::mkdtemp(m_root.data()) != nullptr, "");
}

VolumeBuilder::VolumeBuilder(const std::string& directory)
    : m_root(directory), m_isTemporary(false) {
    folder("");
}

VolumeBuilder::~VolumeBuilder() {
    // Unlike the library's own function, this one can take away a tree of any depth. Closed folders
    // are opened first.
    const std::string root = "'" + m_root + "'";
    if (m_isTemporary &&
        std::system(("chmod -R u+rwX " + root + " && rm -rf " + root).c_str()) != 0)
        std::fprintf(stderr, "%s is left behind\n", m_root.c_str());
}

VolumeBuilder& VolumeBuilder::check(bool succeeded, std::string_view path) {
    const int error = errno;
    if (succeeded || m_failure)
        return *this;
    m_failure = hostPath(path) + ": " + std::generic_category().message(error);
    if (m_isTemporary) {
        std::fprintf(stderr, "%s\n", m_failure->c_str());
        std::abort();
    }
    return *this;
}

/// Where something new is to stand on this machine, with a folder around it and nothing there.
std::string VolumeBuilder::prepared(std::string_view path) {
    folder(path.substr(0, path.rfind('/')));
    std::string place = hostPath(path);
    ::unlink(place.c_str());
    return place;
}

VolumeBuilder& VolumeBuilder::folder(std::string_view path) {
    std::error_code error;
    fs::create_directories(hostPath(path), error);
    errno = error.value();
    return check(!error, path);
}

VolumeBuilder& VolumeBuilder::file(std::string_view path, const Bytes& content, std::int64_t size) {
    const std::string place = prepared(path);
    std::ofstream file(place, std::ios::binary);
    file.write(reinterpret_cast<const char*>(content.data()), std::ssize(content));
    file.close();
    const bool isShort = std::ssize(content) < size;
    return check(file && (!isShort || ::truncate(place.c_str(), size) == 0), path);
}

VolumeBuilder& VolumeBuilder::link(std::string_view path, const std::string& target) {
    return check(::symlink(target.c_str(), prepared(path).c_str()) == 0, path);
}

VolumeBuilder& VolumeBuilder::fifo(std::string_view path) {
    return check(::mkfifo(prepared(path).c_str(), 0644) == 0, path);
}

VolumeBuilder& VolumeBuilder::socket(std::string_view path) {
    return check(::mknod(prepared(path).c_str(), S_IFSOCK | 0644, 0) == 0, path);
}

VolumeBuilder& VolumeBuilder::device(std::string_view path) {
    const std::string place = prepared(path);
    // Root may only be playing an ordinary user.
    const uid_t user = ::geteuid();
    const bool isRoot = ::seteuid(::getuid()) == 0 && ::geteuid() == 0;
    const bool isMade = isRoot && ::mknod(place.c_str(), S_IFCHR | 0666, ::makedev(1, 5)) == 0;
    if (isMade) // whatever the process takes away from new files
        ::chmod(place.c_str(), 0666);
    return check(::seteuid(user) == 0, path);
}

VolumeBuilder& VolumeBuilder::hardLink(std::string_view path, std::string_view existing) {
    return check(::link(hostPath(existing).c_str(), prepared(path).c_str()) == 0, path);
}

VolumeBuilder& VolumeBuilder::mode(std::string_view path, unsigned bits) {
    return check(::chmod(hostPath(path).c_str(), bits) == 0, path);
}

VolumeBuilder& VolumeBuilder::largestFile(std::string_view path, const Bytes& content) {
    file(path, content);
    const std::string place = hostPath(path);
    std::int64_t size = std::numeric_limits<std::int64_t>::max();
    while (size > std::ssize(content) && ::truncate(place.c_str(), size) != 0)
        size -= size / 8;
    return *this;
}

VolumeBuilder& VolumeBuilder::crowd(std::string_view path, int count) {
    // Names for one file cost a disk next to nothing, but some take no more than 65,000.
    constexpr int namesOfOneFile = 30'000;
    folder(path);
    const Descriptor at(::open(hostPath(path).c_str(), O_PATH | O_CLOEXEC));
    bool isDone = static_cast<bool>(at);
    std::string file;
    for (int i = 0; isDone && i < count; ++i) {
        const std::string name = std::to_string(i);
        if (i % namesOfOneFile == 0) {
            file = name;
            isDone = ::mknodat(at.get(), file.c_str(), S_IFREG | 0644, 0) == 0;
        } else {
            isDone = ::linkat(at.get(), file.c_str(), at.get(), name.c_str(), 0) == 0;
        }
    }
    return check(isDone, path);
}

VolumeBuilder& VolumeBuilder::tower(std::string_view path, int levels, const std::string& name,
                                    std::string_view part) {
    folder(path);
    Descriptor at(::open(hostPath(path).c_str(), O_PATH | O_CLOEXEC));
    bool isDone = static_cast<bool>(at);
    for (int level = 1; isDone && level <= levels; ++level) {
        isDone = ::mkdirat(at.get(), name.c_str(), 0755) == 0;
        at = Descriptor(::openat(at.get(), name.c_str(), O_PATH | O_CLOEXEC));
        if (isDone && level % 10 == 0)
            isDone = ::linkat(AT_FDCWD, hostPath(part).c_str(), at.get(),
                              ("part-" + std::to_string(level)).c_str(), 0) == 0;
    }
    return check(isDone, path);
}

VolumeBuilder& VolumeBuilder::modified(std::string_view path, std::int64_t seconds) {
    const timespec times[] = {{seconds, 0}, {seconds, 0}};
    const std::string place = hostPath(path);
    return check(::utimensat(AT_FDCWD, place.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0, path);
}

BundleBuilder VolumeBuilder::bundle(std::string path) {
    return {*this, std::move(path)};
}

BundleBuilder::~BundleBuilder() {
    if (!m_info.empty())
        file("Contents/Info.plist", plistFile(m_info, m_infoForm));
    if (!m_slices.empty())
        file("Contents/MacOS/" + m_executable, machO(m_slices, m_signature), m_executableSize);
    if (m_modified)
        m_volume.modified(m_path, *m_modified);
}

BundleBuilder& BundleBuilder::framework(const std::string& name, const Bytes& binary,
                                        std::int64_t size) {
    const std::string folder = "Contents/Frameworks/" + name + ".framework/";
    const PlistDictionary info{{"CFBundleExecutable", name}, {"CFBundlePackageType", "FMWK"}};
    return file(folder + "Versions/A/" + name, binary, size)
        .file(folder + "Versions/A/Resources/Info.plist", plistFile(info))
        .link(folder + "Versions/Current", "A")
        .link(folder + name, "Versions/Current/" + name)
        .link(folder + "Resources", "Versions/Current/Resources");
}

} // namespace veridane::test
