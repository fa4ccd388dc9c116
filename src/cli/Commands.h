#pragma once

#include "cli/Console.h"

#include <stop_token>
#include <string>
#include <vector>

namespace veridane::cli {

/// The whole program but for what only a process has: reads the arguments behind the program's
/// name, does what they ask for and gives the exit status. A requested stop cancels a scan.
[[nodiscard]] ExitStatus run(const std::vector<std::string>& arguments, const Console& console,
                             const std::stop_token& stop);

} // namespace veridane::cli
