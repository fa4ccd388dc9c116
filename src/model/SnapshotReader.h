#pragma once

#include "model/CachedScanSnapshot.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace veridane::json {

/// More texts in the lists of a snapshot are refused: an empty one takes three bytes of the file
/// and ten times that in memory. A large Mac has some ten thousand.
inline constexpr std::size_t maxListedTexts = 1'000'000;

/// Reads what `snapshotText` writes, straight into the records. Strict: a missing or repeated key,
/// a value of another type, null among them, an unknown raw string, a text that is no UUID or no
/// date, invalid UTF-8 or anything behind the end makes the whole snapshot unreadable. Keys that no
/// record has are passed over with whatever they hold. Any `schemaVersion` is read. Safe on any
/// thread.
[[nodiscard]] std::optional<CachedScanSnapshot> readSnapshot(std::string_view text);

} // namespace veridane::json
