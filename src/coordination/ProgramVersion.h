#pragma once

#include "platform/FileSystem.h"

#include <string>

namespace veridane {

/// The version of the program at `executable` with its build, such as "1.0 (1)": that of its bundle
/// if it runs from one, else the product's. "1.0" and "1" stand in for what the bundle does not
/// tell.
[[nodiscard]] std::string programVersion(const FileSystem& files, const Path& executable);

} // namespace veridane
