#pragma once

#include <string>

namespace veridane {

/// The running system's own name for itself, for people: "Debian GNU/Linux 12 (bookworm)" from the
/// os-release file, else the kernel's name and release.
[[nodiscard]] std::string operatingSystemName();

} // namespace veridane
