#pragma once

#include "model/ScanItem.h"
#include "platform/FileSystem.h"
#include "scan/SearchLocations.h"

#include <optional>
#include <string>
#include <vector>

namespace veridane {

/// A single file that a scan has to look at.
struct FileTarget {
    Path path; // as listed, not resolved
    ItemKind kind = ItemKind::commandLineTool;
    std::optional<std::string> name; // if the source gave one

    bool operator==(const FileTarget&) const = default;
};

/// The direct entries of a directory but hidden ones and folders, in the order of the listing.
[[nodiscard]] std::vector<Path> listFiles(const FileSystem& files, const Path& directory);

/// The programs that launch agents and daemons run, but for those inside applications. Format:
/// launchd.plist.
[[nodiscard]] std::vector<FileTarget> launchServiceTargets(const FileSystem& files,
                                                           const SearchLocations& locations);

/// The item of a single file, which is read at its path without links; nothing if it is no Mach-O
/// file whose header can be read.
[[nodiscard]] std::optional<ScanItem> makeFileItem(const FileSystem& files,
                                                   const FileTarget& target, const Path& resolved);

/// The item of a file that was asked for by name: one that is no Mach-O file is still described.
[[nodiscard]] ScanItem describeFile(const FileSystem& files, const FileTarget& target);

} // namespace veridane
