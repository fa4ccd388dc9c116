#pragma once

#include "cli/Arguments.h"
#include "cli/Console.h"

#include <stop_token>

namespace veridane::cli {

/// Judges each path by itself; one that does not exist is told on the console and passed over.
/// Nothing is delivered once a stop is requested.
[[nodiscard]] ExitStatus inspect(const InspectArguments& arguments, const Console& console,
                                 const std::stop_token& stop);

} // namespace veridane::cli
