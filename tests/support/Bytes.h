#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace veridane::test {

using Bytes = std::vector<std::uint8_t>;

/// 32-bit words, the highest byte first.
[[nodiscard]] inline Bytes bigEndian(std::initializer_list<std::size_t> words) {
    Bytes bytes;
    for (const std::size_t word : words)
        for (const int shift : {24, 16, 8, 0})
            bytes.push_back(static_cast<std::uint8_t>(word >> shift));
    return bytes;
}

inline void append(Bytes& bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

/// A copy with other bytes at `offset`.
[[nodiscard]] inline Bytes with(Bytes bytes, std::size_t offset, const Bytes& change) {
    for (const std::uint8_t byte : change)
        bytes.at(offset++) = byte;
    return bytes;
}

} // namespace veridane::test
