#pragma once

#include "platform/FileSystem.h"

#include <span>
#include <string_view>
#include <vector>

namespace veridane {

/// Lower-case extensions that mark an object under the roots of a table.
using ExtensionSet = std::span<const std::string_view>;

/// Where a scan looks. Each table is in collection order: of several ways to one object the first
/// one wins. A row that lies in a home stands once for each home.
class SearchLocations {
public:
    /// Homes on the volume; they are put in the order of their names.
    explicit SearchLocations(std::vector<Path> homes);

    [[nodiscard]] std::vector<Path> applicationRoots() const;
    [[nodiscard]] std::vector<Path> systemApplicationRoots() const;
    [[nodiscard]] std::vector<Path> audioPluginRoots() const;
    [[nodiscard]] std::vector<Path> extensionRoots() const;
    [[nodiscard]] std::vector<Path> commandLineToolRoots() const;
    [[nodiscard]] std::vector<Path> launchServiceRoots() const;

    static const ExtensionSet applicationExtensions;
    static const ExtensionSet audioPluginExtensions;
    static const ExtensionSet extensionExtensions;

    /// The homes of a mounted Mac: every directory in /Users but Shared and hidden ones.
    [[nodiscard]] static std::vector<Path> homesOnVolume(const FileSystem& files);

private:
    std::vector<Path> m_homes;
};

/// The entries below `root`, down to its fifth level, whose lower-cased extension is in the set, in
/// the order of the walk. Nothing below a match is looked at. A match need not be a directory.
[[nodiscard]] std::vector<Path> findBundles(const FileSystem& files, const Path& root,
                                            ExtensionSet extensions);

} // namespace veridane
