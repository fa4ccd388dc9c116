#pragma once

#include "platform/ByteView.h"
#include "platform/OpenFile.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace veridane {

/// A stretch of foreign bytes, in memory or in an open file, of which a parser fetches only the
/// parts that it needs. Refers to the bytes or the file, which must outlive it.
class ByteSource {
public:
    explicit ByteSource(ByteView bytes) : m_bytes(bytes), m_size(bytes.size()) {}
    explicit ByteSource(const OpenFile& file) : m_file(&file), m_size(file.size()) {}

    [[nodiscard]] std::uint64_t size() const { return m_size; }

    /// The stretch of `size` bytes at `offset`, or nothing unless it lies within this one.
    [[nodiscard]] std::optional<ByteSource> slice(std::uint64_t offset, std::uint64_t size) const;

    /// The `size` bytes at `offset`, or nothing unless all of them can be read. Bytes in memory are
    /// given where they stand, those of a file in `storage`. The caller holds `size` against a
    /// limit first.
    [[nodiscard]] std::optional<ByteView> read(std::uint64_t offset, std::uint64_t size,
                                               std::vector<std::uint8_t>& storage) const;

    /// The same for the first bytes: all of them, but at most `limit`.
    [[nodiscard]] ByteView readStart(std::uint64_t limit, std::vector<std::uint8_t>& storage) const;

private:
    const OpenFile* m_file = nullptr; // absent: the bytes are in memory
    ByteView m_bytes;
    std::uint64_t m_start = 0; // within the file
    std::uint64_t m_size = 0;
};

} // namespace veridane
