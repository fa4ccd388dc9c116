#pragma once

#include "model/ScanItem.h"

#include <span>
#include <string>

namespace veridane::cli {

/// A scan for a person at a terminal: counts by urgency, then the objects that need attention, in
/// aligned columns, then what update checks have found, if there were any. In the language in
/// force; `coloured` adds colour sequences (ECMA-48). Names cannot bring control characters of
/// their own to the terminal.
[[nodiscard]] std::string scanSummary(std::span<const ScanItem> items, bool coloured);

} // namespace veridane::cli
