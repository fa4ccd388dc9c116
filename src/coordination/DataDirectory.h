#pragma once

#include <optional>
#include <string>

namespace veridane {

/// The directory of cache and log: Veridane in the user's data directory, and for the disk mounted
/// at `volume` one in Volumes below that, so that one disk's result is never shown for another. All
/// ways to write a mount point ("../disk", "disk/", a link to it) give the same. Nothing if the
/// user has no data directory, or the working directory that `volume` counts from is gone.
[[nodiscard]] std::optional<std::string>
dataDirectory(const std::optional<std::string>& volume = std::nullopt);

} // namespace veridane
