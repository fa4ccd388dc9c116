#pragma once

#include "model/ScanItem.h"
#include "model/ScanOptions.h"
#include "platform/Date.h"

#include <cstdint>
#include <vector>

namespace veridane {

/// A finished scan as it is kept.
struct CachedScanSnapshot {
    static constexpr std::int64_t currentSchemaVersion = 1;

    std::int64_t schemaVersion = currentSchemaVersion;
    Date scannedAt;
    ScanOptions options;
    std::vector<ScanItem> items;

    bool operator==(const CachedScanSnapshot&) const = default;
};

} // namespace veridane
