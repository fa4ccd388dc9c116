#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace veridane {

/// Bytes that somebody else wrote, looked at without a copy. Every parser of foreign bytes reads
/// through this one view, so that no offset, size or count from a file is believed.
class ByteView {
public:
    constexpr ByteView() = default;
    constexpr ByteView(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    [[nodiscard]] constexpr std::size_t size() const { return m_bytes.size(); }
    [[nodiscard]] constexpr bool empty() const { return m_bytes.empty(); }
    [[nodiscard]] constexpr const std::uint8_t* data() const { return m_bytes.data(); }
    [[nodiscard]] constexpr std::span<const std::uint8_t> bytes() const { return m_bytes; }

    /// The `size` bytes at `offset`, or nothing unless all of them are there.
    [[nodiscard]] constexpr std::optional<ByteView> slice(std::uint64_t offset,
                                                          std::uint64_t size) const {
        // Not `offset + size <= end`: both may come from the file, and the sum may wrap.
        if (offset > m_bytes.size() || size > m_bytes.size() - offset)
            return std::nullopt;
        return ByteView(
            m_bytes.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(size)));
    }

    /// Everything from `offset` on; empty when the view ends before it.
    [[nodiscard]] constexpr ByteView from(std::uint64_t offset) const {
        if (offset >= m_bytes.size())
            return {};
        return ByteView(m_bytes.subspan(static_cast<std::size_t>(offset)));
    }

    /// 32-bit words at `offset`; 0 when the view is shorter than `offset` + 4.
    [[nodiscard]] constexpr std::uint32_t bigEndian32(std::uint64_t offset) const {
        const auto word = slice(offset, 4);
        if (!word)
            return 0;
        const auto& b = word->m_bytes;
        return (std::uint32_t{b[0]} << 24) | (std::uint32_t{b[1]} << 16) |
               (std::uint32_t{b[2]} << 8) | std::uint32_t{b[3]};
    }
    [[nodiscard]] constexpr std::uint32_t littleEndian32(std::uint64_t offset) const {
        const std::uint32_t word = bigEndian32(offset);
        return (word << 24) | ((word & 0xFF00) << 8) | ((word >> 8) & 0xFF00) | (word >> 24);
    }

    /// The bytes as text, without any claim about their encoding.
    [[nodiscard]] std::string_view text() const {
        return {reinterpret_cast<const char*>(m_bytes.data()), m_bytes.size()};
    }

private:
    std::span<const std::uint8_t> m_bytes;
};

/// Text seen as bytes; the text must outlive the view.
[[nodiscard]] inline ByteView bytesOf(std::string_view text) {
    return ByteView(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

} // namespace veridane
