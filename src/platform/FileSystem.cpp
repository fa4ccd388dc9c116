#include "platform/FileSystem.h"

#include "platform/DirectoryListing.h"
#include "platform/FileStatus.h"
#include "platform/PathLookup.h"
#include "platform/TreeWalk.h"
#include "platform/WalkVisitor.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace veridane {
namespace {

/// Nothing, because of what `errno` says.
std::nullopt_t withTrouble(const QuietOpener& opener) {
    opener.trouble()->note(errno);
    return std::nullopt;
}

std::optional<OpenFile> openRegularFile(const QuietOpener& opener, const Location& location) {
    // Asked before opening: opening a device can already do something to it.
    const auto before = FileStatus::of(location.folder.get(), location.name.c_str());
    if (!before)
        return withTrouble(opener);
    if (before->type() != EntryType::regularFile)
        return std::nullopt;
    Descriptor descriptor = opener.file(location.folder.get(), location.name.c_str());
    if (!descriptor)
        return withTrouble(opener);
    const auto status = FileStatus::of(descriptor.get());
    if (!status || status->type() != EntryType::regularFile)
        return std::nullopt;
    return OpenFile(std::move(descriptor), static_cast<std::uint64_t>(status->size()),
                    status->identity(), opener.trouble());
}

std::optional<ResourceValues> valuesAt(const std::optional<Location>& location) {
    if (!location)
        return std::nullopt;
    const auto status = FileStatus::of(location->folder.get(), location->name.c_str());
    if (!status)
        return std::nullopt;
    return ResourceValues{status->type(), status->size(), status->modificationDate()};
}

} // namespace

bool FileSystem::exists(const Path& path) const {
    const auto location = locate(m_opener, m_root, path, LastLink::follow);
    if (!location)
        return false;
    if (FileStatus::of(location->folder.get(), location->name.c_str()))
        return true;
    m_opener.trouble()->note(errno);
    return false;
}

bool FileSystem::mayExist(const Path& path) const {
    errno = 0;
    return exists(path) || !isAbsence(errno);
}

bool FileSystem::isReadable(const Path& path) const {
    const auto location = locate(m_opener, m_root, path, LastLink::follow);
    return location &&
           ::faccessat(location->folder.get(), location->name.c_str(), R_OK, AT_EACCESS) == 0;
}

std::optional<std::vector<DirectoryEntry>> FileSystem::list(const Path& path) const {
    const auto location = locate(m_opener, m_root, path, LastLink::follow);
    if (!location)
        return std::nullopt;
    const Descriptor folder = m_opener.folder(location->folder.get(), location->name.c_str());
    if (!folder)
        return withTrouble(m_opener);
    DirectoryListing listing(folder.get());
    std::vector<DirectoryEntry> entries;
    while (const auto entry = listing.next())
        entries.push_back({std::string(entry->name), entry->type});
    m_opener.trouble()->note(listing.failure());
    if (listing.failure() != 0 && entries.empty())
        return std::nullopt;
    std::ranges::sort(entries, {}, &DirectoryEntry::name);
    return entries;
}

std::optional<ResourceValues> FileSystem::resourceValues(const Path& path) const {
    return valuesAt(locate(m_opener, m_root, path, LastLink::keep));
}

std::optional<ResourceValues> FileSystem::targetValues(const Path& path) const {
    return valuesAt(locate(m_opener, m_root, path, LastLink::follow));
}

Path FileSystem::resolvingLinks(const Path& path) const {
    auto location = locate(m_opener, m_root, path, LastLink::follow);
    if (!location) // a link at the end that leads nowhere still has one place alone
        location = locate(m_opener, m_root, path, LastLink::keep);
    if (!location)
        return path;
    return std::move(location->path);
}

std::optional<OpenFile> FileSystem::open(const Path& path) const {
    const auto location = locate(m_opener, m_root, path, LastLink::follow);
    if (!location)
        return std::nullopt;
    return openRegularFile(m_opener, *location);
}

std::optional<std::vector<std::uint8_t>> FileSystem::readWhole(const Path& path,
                                                               std::uint64_t limit) const {
    const auto file = open(path);
    if (!file || file->size() > limit)
        return std::nullopt;
    return file->readExactly(0, static_cast<std::size_t>(file->size()));
}

bool FileSystem::walk(const Path& path, WalkVisitor& visitor) const {
    const auto location = locate(m_opener, m_root, path, LastLink::follow);
    if (!location)
        return false;
    Descriptor folder = m_opener.folder(location->folder.get(), location->name.c_str());
    if (!folder) {
        m_opener.trouble()->note(errno);
        return false;
    }
    TreeWalk(m_opener, visitor, m_stop).run(std::move(folder));
    return true;
}

} // namespace veridane
