#pragma once

#include <optional>
#include <string>
#include <vector>

namespace veridane {

/// Starts a program that outlives this one: in a session of its own, with this one's environment,
/// working directory and standard streams, and with no signal blocked. The command is the program's
/// path and its arguments, bytes as they are. Gives the process' number; nothing if it could not be
/// started. Does not wait for it.
std::optional<int> startProcess(const std::vector<std::string>& command);

} // namespace veridane
