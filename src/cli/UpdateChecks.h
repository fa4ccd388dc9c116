#pragma once

#include "cli/Arguments.h"
#include "cli/Console.h"
#include "model/ScanItem.h"

#include <stop_token>
#include <vector>

namespace veridane::cli {

/// Whether the store's lookup service has a usable address; if not, a line on the console tells.
[[nodiscard]] bool canAskTheStore(const Console& console);

/// Looks for newer versions of all items that come from the store or name a feed, all at once, and
/// writes what comes of it into them. Ends early once a stop is requested.
void checkUpdates(std::vector<ScanItem>& items, const ScanArguments& arguments,
                  const Console& console, const std::stop_token& stop);

} // namespace veridane::cli
