#pragma once

#include "platform/ByteView.h"
#include "platform/FileSystem.h"
#include "platform/OpenFile.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace veridane {

/// How much of each regular file a walk has to find out.
enum class WalkDetail {
    names,       // nothing but what the listing says
    sizes,       // one size query a file
    classifying, // the size, and `WalkVisitor::classify` on the open file
};

/// The first bytes of a file that a walk has just opened.
class FileHead {
public:
    FileHead(const OpenFile& file, ByteView first) : m_file(file), m_first(first) {}

    /// The first `WalkVisitor::headSize` bytes; fewer when the file is shorter or cannot be read.
    [[nodiscard]] ByteView first() const { return m_first; }
    [[nodiscard]] FileIdentity identity() const { return m_file.identity(); }

    /// Reads from the start of the file into `buffer`, for what the first bytes promise more of.
    [[nodiscard]] ByteView read(std::span<std::uint8_t> buffer) const {
        return m_file.read(0, buffer);
    }

private:
    const OpenFile& m_file;
    ByteView m_first;
};

/// One entry that a walk has met. The views hold during the visit only.
struct WalkEntry {
    std::string_view name;         // bytes
    std::string_view relativePath; // bytes, below the walk's root, without a slash in front
    EntryType type = EntryType::other;
    int level = 0;         // 1 for a direct child of the root
    std::int64_t size = 0; // bytes; regular files of a walk that asks for sizes
    std::uint8_t tag = 0;  // what `classify` answered for this file; 0 if it was not asked
};

/// Receives the entries of one walk. Entries come in ascending byte order of their names, a folder
/// before its contents.
class WalkVisitor {
public:
    /// Bytes of each file that a classifying walk hands over as `FileHead::first`.
    static constexpr std::size_t headSize = 16;

    enum class Next { descend, skipDescendants };

    virtual ~WalkVisitor() = default;

    /// One entry in the order of the walk. The answer counts for a directory only.
    virtual Next visit(const WalkEntry& entry) = 0;

    /// Asked when a folder is entered, with 0, and, unless names will do, in front of each of its
    /// files: `tagged` of those before it in the folder are known to have a mark. Later ones may
    /// get less detail, never more.
    [[nodiscard]] virtual WalkDetail detail(std::size_t tagged) const {
        static_cast<void>(tagged);
        return WalkDetail::names;
    }

    /// A small mark of the visitor's own for a file's content, handed back with the file's entry.
    /// All files of a folder are classified as it is entered, before anything below it is visited,
    /// and in no stated order: on a cold disk those that have to be fetched come last.
    virtual std::uint8_t classify(const FileHead&) { return 0; }
};

} // namespace veridane
