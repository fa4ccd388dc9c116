#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace veridane {

/// The SHA-256 of the bytes as 64 lower-case hexadecimal digits; nothing where the system's
/// cryptography does not offer it. Safe on any thread.
[[nodiscard]] std::optional<std::string> sha256(std::string_view bytes);

} // namespace veridane
