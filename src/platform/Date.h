#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace veridane {

/// An instant, as precise as file systems store it (years 1678 to 2261).
using Date = std::chrono::sys_time<std::chrono::nanoseconds>;

[[nodiscard]] Date now();

/// ISO 8601 in UTC with whole seconds and the suffix Z, as in "2027-03-01T09:30:00Z". The fraction
/// of a second is dropped.
[[nodiscard]] std::string formatISO8601(Date date);

/// Reads exactly the form that `formatISO8601` writes; nothing for any other text or a day that the
/// calendar does not have.
[[nodiscard]] std::optional<Date> parseISO8601(std::string_view text);

} // namespace veridane
