#pragma once

#include "model/ScanItem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veridane {

class NativeCounterparts;

/// How urgent an object is for the move away from Rosetta 2. The order is the sort order.
enum class Urgency : std::uint8_t {
    breaksOnMacOS28,
    partiallyAffected,
    switchToNative,
    ready,
    alreadyBroken,
    unknown
};
inline constexpr int urgencyCount = 6;

/// The class with that number; nothing outside of 0 to 5.
[[nodiscard]] std::optional<Urgency> urgencyFromRawValue(int value);

/// Whether the owner should do something before macOS 28.
[[nodiscard]] bool needsAttention(Urgency urgency);

/// The label in the language in force.
[[nodiscard]] std::string displayName(Urgency urgency);

/// The name of the case, for machine-readable output.
[[nodiscard]] std::string_view caseName(Urgency urgency);

/// The judgement of one object in plain words, in the language in force.
struct Recommendation {
    Urgency urgency = Urgency::unknown;
    std::string verdict; // one line
    std::string advice;  // a paragraph

    /// `hasIntelComponents` matters for a native object only, `hasNativeCounterpart` for one that
    /// needs Rosetta only.
    Recommendation(CompatibilityStatus status, bool hasIntelComponents, bool hasNativeCounterpart);

    bool operator==(const Recommendation&) const = default;
};

/// The class alone, for counting and sorting without any text.
[[nodiscard]] Urgency urgencyOf(CompatibilityStatus status, bool hasIntelComponents,
                                bool hasNativeCounterpart);
[[nodiscard]] Urgency urgencyOf(const ScanItem& item, const NativeCounterparts& counterparts);
[[nodiscard]] Recommendation recommendationFor(const ScanItem& item,
                                               const NativeCounterparts& counterparts);

} // namespace veridane
