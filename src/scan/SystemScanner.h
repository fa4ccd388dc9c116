#pragma once

#include "model/ScanItem.h"
#include "model/ScanOptions.h"
#include "model/ScanProgress.h"
#include "platform/FileSystem.h"
#include "scan/SearchLocations.h"

#include <functional>
#include <stop_token>
#include <vector>

/// The one entry into the scan engine.
namespace veridane::SystemScanner {

/// Called on the scanning thread; must not block.
using OnProgress = std::function<void(const ScanProgress&)>;

/// Reads every object of the chosen categories, one after the other, and gives the items without
/// duplicates, sorted by status and name. Cannot fail: what cannot be read is left out. A requested
/// stop ends the scan in front of the next object, without further reports, and gives what was
/// found until then. Blocks until done; keeps nothing between calls.
[[nodiscard]] std::vector<ScanItem> scan(const FileSystem& files, const SearchLocations& locations,
                                         const ScanOptions& options, const OnProgress& onProgress,
                                         const std::stop_token& stop);

} // namespace veridane::SystemScanner
