#pragma once

#include "model/ArchitectureReport.h"
#include "platform/FileSystem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veridane {

/// What one pass over the contents of a bundle finds.
struct BundleWalk {
    std::int64_t sizeOnDisk = 0;              // bytes, logical sizes of the regular files
    std::vector<std::string> intelComponents; // relative paths, in the order of the walk; names
                                              // alone where the paths are beyond all measure
    std::optional<CompatibilityStatus> worstStatus; // of the components; absent without any

    bool operator==(const BundleWalk&) const = default;
};

/// Looks at every regular file in a bundle, whatever its name. The main executable is no component.
/// Hidden files and links count for nothing. What cannot be read makes the size smaller or the list
/// shorter, never more.
[[nodiscard]] BundleWalk walkBundle(const FileSystem& files, const Path& bundle,
                                    const std::optional<Path>& mainExecutable);

/// The path of a file inside a bundle, relative to it and without slashes at the ends; the file's
/// name alone if it lies elsewhere.
[[nodiscard]] std::string relativeComponentPath(const Path& file, const Path& bundle);

} // namespace veridane
