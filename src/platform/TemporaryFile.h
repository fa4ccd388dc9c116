#pragma once

#include "platform/Descriptor.h"

#include <sys/types.h>

#include <string>

namespace veridane {

/// A new file, open for writing, that is gone again unless it takes another one's place. It is
/// locked as long as it exists under its own name, which tells it from one that a killed program
/// has left.
class TemporaryFile {
public:
    /// In that directory, under a name that begins with ".veridane-".
    TemporaryFile(const std::string& directory, mode_t mode);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Invalid where no file could be made, with the reason in `errno`.
    [[nodiscard]] const Descriptor& file() const { return m_file; }

    /// Gives the file another name in the same directory; what stood there is gone. False after a
    /// failure, with the reason in `errno`.
    [[nodiscard]] bool moveTo(const std::string& path);

private:
    [[nodiscard]] bool isOurs() const;

    std::string m_path;
    Descriptor m_file;
    bool m_exists;
};

/// Removes the temporary files that killed programs have left in the directory. One that is still
/// being written, by this program or another, is left alone.
void removeAbandonedFiles(const std::string& directory);

} // namespace veridane
