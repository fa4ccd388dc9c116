#pragma once

#include "model/ScanItem.h"

#include <cstddef>
#include <vector>

namespace veridane::benchmarks {

/// A made-up result of a scan, the same at each call but for the identifiers: names, paths and
/// vendors as long and as often repeated as on a real Mac, a tenth of them not in ASCII.
[[nodiscard]] std::vector<ScanItem> sampleItems(std::size_t count);

} // namespace veridane::benchmarks
