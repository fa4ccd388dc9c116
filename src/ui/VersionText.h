#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>

namespace veridane::ui {

/// A version with its build in parentheses: "1.0 (1)", which also stand in for what is missing.
[[nodiscard]] std::string versionText(const std::optional<std::string>& shortVersion,
                                      const std::optional<std::string>& build);

/// The version of the program at `executable`: that of its bundle if it runs from one, else the
/// product's.
[[nodiscard]] std::string versionTextOf(const FileSystem& files, const Path& executable);

} // namespace veridane::ui
