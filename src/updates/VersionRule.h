#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// The one rule that says which of two version texts is the newer. Feeds, stores and bundles write
/// versions in many forms, so a text is only the list of numbers in it.
namespace veridane::UpdateChecker {

/// The runs of number characters as integers. A run that holds anything but the digits 0 to 9, or
/// whose value does not fit, gives 0; letters and all other characters only separate.
[[nodiscard]] std::vector<std::int64_t> versionComponents(std::string_view text);

/// Whether `a` is strictly newer. A component that is missing counts as 0; "2.0-beta" and "2.0" are
/// equal, because the word adds no number.
[[nodiscard]] bool isNewer(std::string_view a, std::string_view b);

/// The same with the components of `b` at hand. Takes no longer than `a` is, however long `b` was.
[[nodiscard]] bool isNewer(std::string_view a, std::span<const std::int64_t> b);

} // namespace veridane::UpdateChecker
