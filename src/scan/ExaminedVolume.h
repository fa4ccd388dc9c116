#pragma once

#include "platform/FileSystem.h"
#include "scan/SearchLocations.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace veridane {

/// The Mac that is examined: its files, and where on it a scan looks.
struct ExaminedVolume {
    std::unique_ptr<const FileSystem> files; // never null
    SearchLocations locations;
};

/// Why something cannot be examined: a line for people, in English.
struct VolumeError {
    std::string text;
};

/// The Mac below a directory of this machine, with all the homes on it; without a directory, this
/// machine with the current user's home. Named homes take the place of both; like the directory,
/// each has to be a folder that can be entered.
[[nodiscard]] std::variant<ExaminedVolume, VolumeError>
openVolume(const std::optional<std::string>& directory, const std::vector<std::string>& homes = {});

} // namespace veridane
