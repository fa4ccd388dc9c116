#pragma once

#include <optional>
#include <string>

namespace veridane {

/// The user's home: $HOME where it is absolute, else what the system's user list says; nothing if
/// neither names one.
[[nodiscard]] std::optional<std::string> homeDirectory();

/// Where programs keep what they make for this user: $XDG_DATA_HOME where it is absolute, else
/// .local/share in the home; on a Mac Library/Application Support. It may not exist yet.
[[nodiscard]] std::optional<std::string> userDataDirectory();

/// Where programs keep the user's settings: $XDG_CONFIG_HOME where it is absolute, else .config in
/// the home. It may not exist yet.
[[nodiscard]] std::optional<std::string> userConfigDirectory();

/// Makes a directory of this machine with those above it; new ones are open to the user alone. One
/// that exists is left as it is. Gives the system's description of the failure, or nothing.
[[nodiscard]] std::optional<std::string> makeDirectories(const std::string& path);

} // namespace veridane
