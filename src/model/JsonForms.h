#pragma once

#include "model/CachedScanSnapshot.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <variant>

/// The stored forms of the records. Absent optional values have no key. Reading is strict: a
/// missing required key, a value of another type, an unknown raw string, a text that is no UUID or
/// no date makes the whole value unreadable. Unknown keys are passed over.
namespace veridane::json {

/// What stands in place of a value that could not be read: why, for a developer's eyes.
struct Unreadable {
    std::string reason;

    bool operator==(const Unreadable&) const = default;
};

template <typename T>
using Reading = std::variant<T, Unreadable>;

[[nodiscard]] nlohmann::json encode(const ScanOptions& options);
[[nodiscard]] nlohmann::json encode(const ArchitectureReport& report);
[[nodiscard]] nlohmann::json encode(const UpdateCheckResult& result);
[[nodiscard]] nlohmann::json encode(const ScanItem& item);

[[nodiscard]] Reading<ScanOptions> decodeScanOptions(const nlohmann::json& value);
[[nodiscard]] Reading<ArchitectureReport> decodeArchitectureReport(const nlohmann::json& value);
[[nodiscard]] Reading<UpdateCheckResult> decodeUpdateCheckResult(const nlohmann::json& value);
[[nodiscard]] Reading<ScanItem> decodeScanItem(const nlohmann::json& value);

/// The whole snapshot as one line of text; slashes are not escaped. Encoded item by item, so that
/// its size is that of the text and no tree of it is ever built.
[[nodiscard]] std::string snapshotText(const CachedScanSnapshot& snapshot);

} // namespace veridane::json
