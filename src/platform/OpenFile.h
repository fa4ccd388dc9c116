#pragma once

#include "platform/ByteView.h"
#include "platform/Descriptor.h"
#include "platform/ReadTrouble.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace veridane {

/// Tells a file from every other one on the machine while it exists.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// A regular file, open for reading at any position. Closed on destruction.
class OpenFile {
public:
    /// Takes a descriptor that is known to be a regular file's. `trouble` is told of failed reads.
    OpenFile(Descriptor descriptor, std::uint64_t size, FileIdentity identity,
             std::shared_ptr<ReadTrouble> trouble)
        : m_descriptor(std::move(descriptor)), m_size(size), m_identity(identity),
          m_trouble(std::move(trouble)) {}

    /// Bytes, at the moment of opening. A file may be shorter when it is read.
    [[nodiscard]] std::uint64_t size() const { return m_size; }
    [[nodiscard]] FileIdentity identity() const { return m_identity; }

    /// Reads into `buffer` from `offset` on and gives the bytes that are there: fewer than asked
    /// for at the end of the file, none after a failure.
    [[nodiscard]] ByteView read(std::uint64_t offset, std::span<std::uint8_t> buffer) const;

    /// The `size` bytes at `offset`, or nothing unless all of them can be read. The caller holds
    /// `size` against a limit first.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> readExactly(std::uint64_t offset,
                                                                       std::size_t size) const;

private:
    Descriptor m_descriptor;
    std::uint64_t m_size;
    FileIdentity m_identity;
    std::shared_ptr<ReadTrouble> m_trouble;
};

} // namespace veridane
