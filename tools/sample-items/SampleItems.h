#pragma once

#include "model/ScanItem.h"

#include <cstddef>
#include <vector>

namespace veridane::sample {

/// As many objects as a scan of a Mac may find, with names, paths and vendors as long and as often
/// repeated as there; one in ten has twenty components, one in sixteen words is not in ASCII. The
/// same for the same numbers; another `variant` has no object in common.
[[nodiscard]] std::vector<ScanItem> sampleItems(std::size_t count, unsigned variant = 0);

} // namespace veridane::sample
