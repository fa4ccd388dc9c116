#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veridane {

/// A universally unique identifier (RFC 9562).
class Uuid {
public:
    /// All zero.
    constexpr Uuid() = default;

    /// A random one (version 4).
    [[nodiscard]] static Uuid random();

    /// From the 36-character form with hyphens, in either case; nothing for any other text.
    [[nodiscard]] static std::optional<Uuid> parse(std::string_view text);

    /// 36 characters, with hyphens and upper-case hexadecimal digits.
    [[nodiscard]] std::string text() const;

    bool operator==(const Uuid&) const = default;
    auto operator<=>(const Uuid& other) const { return m_bytes <=> other.m_bytes; }

private:
    std::array<std::uint8_t, 16> m_bytes{};
};

} // namespace veridane
