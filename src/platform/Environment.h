#pragma once

#include <optional>
#include <string>

/// What the environment of the process says. Not to be called while something writes it.
namespace veridane::Environment {

/// The value of a variable; nothing if it is not set or empty, which people take for the same.
[[nodiscard]] std::optional<std::string> variable(const char* name);

/// Scheme, host and port of a service: what the variable holds in its place, for tests and mirrors,
/// else `builtIn`. Without slashes at the end, so that a path can follow.
[[nodiscard]] std::string service(const char* variableName, const char* builtIn);

} // namespace veridane::Environment
