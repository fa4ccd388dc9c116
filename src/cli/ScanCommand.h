#pragma once

#include "cli/Arguments.h"
#include "cli/Console.h"

#include <stop_token>

namespace veridane::cli {

/// Scans and delivers the result. Nothing is delivered of a scan that was stopped.
[[nodiscard]] ExitStatus scan(const ScanArguments& arguments, const Console& console,
                              const std::stop_token& stop);

} // namespace veridane::cli
