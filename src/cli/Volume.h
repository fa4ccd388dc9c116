#pragma once

#include "cli/Console.h"
#include "platform/FileSystem.h"
#include "scan/SearchLocations.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace veridane::cli {

/// The files below the directory that the user names, else those of this machine. Nothing, with a
/// line on the console, if it is no directory that can be entered.
[[nodiscard]] std::unique_ptr<FileSystem> openVolume(const std::optional<std::string>& directory,
                                                     const Console& console);

/// Where to look, with the named homes; without any, with all homes of a mounted Mac or the current
/// user's. Nothing, with a line on the console, for a named home that is not there.
[[nodiscard]] std::optional<SearchLocations> searchLocations(const FileSystem& files,
                                                             const std::vector<std::string>& homes,
                                                             bool isMounted,
                                                             const Console& console);

} // namespace veridane::cli
