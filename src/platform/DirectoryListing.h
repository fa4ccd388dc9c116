#pragma once

#include "platform/Descriptor.h"
#include "platform/FileSystem.h"

#include <dirent.h>

#include <memory>
#include <optional>
#include <string_view>

namespace veridane {

/// The entries of one open folder as the system delivers them, in no order and without hidden ones.
/// Owns the folder's descriptor, which serves for work relative to the folder meanwhile.
class DirectoryListing {
public:
    struct Entry {
        std::string_view name; // until the next call of `next`; a NUL follows
        EntryType type = EntryType::other;
    };

    DirectoryListing() = default;
    explicit DirectoryListing(Descriptor folder);

    [[nodiscard]] explicit operator bool() const { return m_stream != nullptr; }
    [[nodiscard]] int descriptor() const { return ::dirfd(m_stream.get()); }

    /// The next entry; nothing at the end, or where the listing breaks off.
    [[nodiscard]] std::optional<Entry> next();

    void close() { m_stream.reset(); }

private:
    struct Closer {
        void operator()(DIR* stream) const { ::closedir(stream); }
    };
    std::unique_ptr<DIR, Closer> m_stream;
};

} // namespace veridane
