#pragma once

#include "platform/FileSystem.h"
#include "platform/OpenFile.h"

#include <sys/stat.h>

#include <cstdint>
#include <optional>

namespace veridane {

/// One answer of the system about an entry.
class FileStatus {
public:
    /// Of a name in an open folder; a link is not followed.
    [[nodiscard]] static std::optional<FileStatus> of(int folder, const char* name);
    [[nodiscard]] static std::optional<FileStatus> of(int descriptor);

    [[nodiscard]] EntryType type() const;
    [[nodiscard]] std::int64_t size() const { return m_status.st_size; }
    [[nodiscard]] FileIdentity identity() const { return {m_status.st_dev, m_status.st_ino}; }

    /// Nothing when the stored time is out of the range of `Date`.
    [[nodiscard]] std::optional<Date> modificationDate() const;

private:
    struct stat m_status {};
};

} // namespace veridane
