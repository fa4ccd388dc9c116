#pragma once

#include "model/Recommendation.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace veridane {

/// Which urgencies a list shows, in the order of the filter rows.
enum class StatusFilter : std::uint8_t {
    all,
    needsAttention,
    breaksOnMacOS28,
    partiallyAffected,
    switchToNative,
    ready,
    notRelevant
};
inline constexpr std::size_t statusFilterCount = 7;

[[nodiscard]] bool passes(Urgency urgency, StatusFilter filter);

[[nodiscard]] std::string_view rawString(StatusFilter filter);

/// The label in the language in force.
[[nodiscard]] std::string displayName(StatusFilter filter);

} // namespace veridane
