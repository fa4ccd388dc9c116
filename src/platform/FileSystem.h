#pragma once

#include "platform/Date.h"
#include "platform/OpenFile.h"
#include "platform/Path.h"
#include "platform/QuietOpener.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

namespace veridane {

class WalkVisitor;

enum class EntryType : std::uint8_t { regularFile, directory, symbolicLink, other };

struct DirectoryEntry {
    std::string name; // bytes as on disk
    EntryType type = EntryType::other;

    bool operator==(const DirectoryEntry&) const = default;
};

/// What the file system knows of one entry.
struct ResourceValues {
    EntryType type = EntryType::other;
    std::int64_t size = 0;                       // bytes, logical
    std::optional<Date> contentModificationDate; // absent when out of the range of `Date`
};

/// The files of the examined Mac. Every operation takes paths of the Mac and works inside the root:
/// absolute symbolic links restart there, ".." never leaves it, and a chain of more than 40 links
/// leads nowhere. Nothing blocks, whatever stands at a path. Only reads, and leaves access times
/// alone where the system allows it. Nothing is held open between calls. Safe on any thread.
class FileSystem {
public:
    /// `root` is a directory of this machine; "/" examines the machine itself.
    explicit FileSystem(std::string root)
        : FileSystem(std::move(root), {}, std::make_shared<ReadTrouble>()) {}

    /// The same files, but walks end early once a stop is requested: one bundle can hold more than
    /// anybody wants to wait for.
    [[nodiscard]] FileSystem stoppingAt(const std::stop_token& stop) const {
        return FileSystem(m_root, stop, m_opener.trouble());
    }

    /// Why something that is there could not be read until now, by this object and those made from
    /// it; nothing if all went well.
    [[nodiscard]] std::optional<std::string> trouble() const {
        return m_opener.trouble()->description();
    }

    /// Whether something stands at the path, links followed.
    [[nodiscard]] bool exists(const Path& path) const;

    /// The same, but also true where the disk does not tell.
    [[nodiscard]] bool mayExist(const Path& path) const;

    /// Whether the process may read what stands at the path, links followed.
    [[nodiscard]] bool isReadable(const Path& path) const;

    /// The entries of a directory without the hidden ones, in ascending byte order of their names;
    /// nothing if it cannot be listed. Follows a link at the path itself.
    [[nodiscard]] std::optional<std::vector<DirectoryEntry>> list(const Path& path) const;

    /// The values of the entry itself: a link at the end of the path is not followed.
    [[nodiscard]] std::optional<ResourceValues> resourceValues(const Path& path) const;

    /// The values of what stands at the path, links followed.
    [[nodiscard]] std::optional<ResourceValues> targetValues(const Path& path) const;

    /// The path with all links in it resolved, but for one at its end that leads nowhere. Where
    /// even the folder around it cannot be found, the path stays as it is written.
    [[nodiscard]] Path resolvingLinks(const Path& path) const;

    /// Opens a regular file for reading, links followed; nothing for anything else.
    [[nodiscard]] std::optional<OpenFile> open(const Path& path) const;

    /// The whole content of a regular file, links followed; nothing for a file of more than `limit`
    /// bytes or one that cannot be read to its end.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> readWhole(const Path& path,
                                                                     std::uint64_t limit) const;

    /// Visits everything below a directory but hidden entries and what is below them; see
    /// `WalkVisitor`. A link at the path itself is followed, links below it are not. False if there
    /// is no directory to walk.
    bool walk(const Path& path, WalkVisitor& visitor) const;

private:
    FileSystem(std::string root, std::stop_token stop, std::shared_ptr<ReadTrouble> trouble)
        : m_root(std::move(root)), m_stop(std::move(stop)), m_opener(std::move(trouble)) {}

    std::string m_root;
    std::stop_token m_stop;
    QuietOpener m_opener;
};

} // namespace veridane
