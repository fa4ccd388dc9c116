#pragma once

#include "model/CachedScanSnapshot.h"

#include <string>

namespace veridane::json {

/// The whole snapshot as one line of text; slashes are not escaped, absent optional values have no
/// key, dates lose the fraction of their second. `readSnapshot` reads it.
[[nodiscard]] std::string snapshotText(const CachedScanSnapshot& snapshot);

} // namespace veridane::json
