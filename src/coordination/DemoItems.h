#pragma once

#include "model/ScanItem.h"

#include <vector>

namespace veridane {

/// Two made-up applications, one for each processor, with fresh identifiers: what a window shows
/// that is driven by a test.
[[nodiscard]] std::vector<ScanItem> demoItems(Date lastModified);

} // namespace veridane
