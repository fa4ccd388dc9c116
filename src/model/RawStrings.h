#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

/// Enumerations that are stored by name: each has one table of its texts in declared order.
namespace veridane::RawStrings {

template <std::size_t count>
using Table = std::array<std::string_view, count>;

template <typename Enumeration, std::size_t count>
[[nodiscard]] constexpr std::string_view textOf(const Table<count>& table, Enumeration value) {
    return table[static_cast<std::size_t>(value)];
}

template <typename Enumeration, std::size_t count>
[[nodiscard]] constexpr std::optional<Enumeration> valueOf(const Table<count>& table,
                                                           std::string_view text) {
    for (std::size_t i = 0; i < count; ++i)
        if (table[i] == text)
            return static_cast<Enumeration>(i);
    return std::nullopt;
}

} // namespace veridane::RawStrings
