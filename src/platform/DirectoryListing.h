#pragma once

#include "platform/FileSystem.h"

#include <dirent.h>

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace veridane {

/// The entries of one open folder as the system delivers them, in no order and without hidden ones.
/// The folder's descriptor must stay open meanwhile, and serves for one listing.
class DirectoryListing {
public:
    struct Entry {
        std::string_view name; // until the next call of `next`; a NUL follows
        EntryType type = EntryType::other;
    };

    explicit DirectoryListing(int folder) : m_folder(folder) {}

    /// The next entry; nothing at the end, or where the listing breaks off.
    [[nodiscard]] std::optional<Entry> next();

    /// The `errno` with which the system gave up the listing before its end, or 0.
    [[nodiscard]] int failure() const { return m_failure; }

private:
    int m_folder;
    int m_failure = 0;
#ifdef __linux__
    // Without the library's stream, which asks three questions more about each folder, and takes a
    // buffer from the heap that has it grow and shrink all through a walk.
    using RawEntry = dirent64;
    alignas(RawEntry) std::array<char, 32768> m_buffer;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
#else
    using RawEntry = dirent;
    struct Closer {
        void operator()(DIR* stream) const { ::closedir(stream); }
    };
    std::unique_ptr<DIR, Closer> m_stream;
#endif

    const RawEntry* nextRaw();
    [[nodiscard]] EntryType typeOf(const RawEntry& entry) const;
};

} // namespace veridane
