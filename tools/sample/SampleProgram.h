#pragma once

#include "support/VolumeBuilder.h"

#include <functional>
#include <string>

namespace veridane::sample {

/// What the programs that write a Mac end with.
enum ExitStatus : int { written = 0, failed = 1, misused = 2 };

/// Lets `write` fill a new or empty directory of this machine. Anything else is told on standard
/// error, behind the program's name, and stays as it is.
[[nodiscard]] ExitStatus writeVolume(const std::string& programName, const std::string& directory,
                                     const std::function<void(test::VolumeBuilder&)>& write);

} // namespace veridane::sample
