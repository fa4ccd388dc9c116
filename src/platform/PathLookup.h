#pragma once

#include "platform/Descriptor.h"
#include "platform/Path.h"
#include "platform/QuietOpener.h"

#include <optional>
#include <string>

namespace veridane {

/// Where a path leads: a name in a folder that is open. Nothing need stand there.
struct Location {
    Descriptor folder; // only to go through
    std::string name;  // one component, or "." for the folder itself
    Path path;         // without links, but for one at the end that was not to be followed
};

enum class LastLink { follow, keep };

/// Follows a path component by component, from descriptor to descriptor, so that neither a link nor
/// ".." nor a folder that is swapped meanwhile can lead out of `root`. Absolute links restart at
/// the root; more than 40 links lead nowhere. Nothing if a folder on the way is missing.
[[nodiscard]] std::optional<Location> locate(const QuietOpener& opener, const std::string& root,
                                             const Path& path, LastLink lastLink);

} // namespace veridane
