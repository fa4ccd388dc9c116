#pragma once

#include "platform/Descriptor.h"
#include "platform/ReadTrouble.h"

#include <atomic>
#include <memory>
#include <utility>

namespace veridane {

/// Whether an `errno` says that the process, or the machine, has no descriptor left.
[[nodiscard]] bool isOutOfDescriptors(int error);

/// Opens files and folders for reading without leaving a trace or waiting: close-on-exec, never
/// blocking on a FIFO, never through a link at the last component, and without a new access time as
/// long as the system has not refused that once. Safe on any thread.
class QuietOpener {
public:
    explicit QuietOpener(std::shared_ptr<ReadTrouble> trouble) : m_trouble(std::move(trouble)) {}

    /// Where whoever uses the opener notes that it could not be helped. Never null.
    [[nodiscard]] const std::shared_ptr<ReadTrouble>& trouble() const { return m_trouble; }

    /// An invalid descriptor after a failure, with `errno` set.
    [[nodiscard]] Descriptor file(int folder, const char* name) const;
    [[nodiscard]] Descriptor folder(int folder, const char* name) const;

    /// A folder only to go through: needs no permission to list it.
    [[nodiscard]] Descriptor passage(int folder, const char* name) const;

    /// The same for a folder of this machine, which may be a link.
    [[nodiscard]] Descriptor root(const char* path) const;

    /// The same for a folder several names down, if there is neither a link nor ".." on the way.
    /// ENOENT says that a folder is missing; every other error that nothing is known.
    [[nodiscard]] Descriptor straightPassage(int folder, const char* path) const;

private:
    [[nodiscard]] Descriptor open(int folder, const char* name, int flags) const;

    std::shared_ptr<ReadTrouble> m_trouble;
    mutable std::atomic<bool> m_keepsAccessTimes{true};
    mutable std::atomic<bool> m_canGoStraight{true};
};

} // namespace veridane
