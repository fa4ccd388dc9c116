#pragma once

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace veridane {

/// Writes a whole file of this machine so that a reader sees the old content or the new one and
/// nothing between: through a temporary file in the same directory, flushed to the disk and
/// renamed. A file that is replaced hands on its permissions, and its owner and group where that is
/// allowed; another group gets no more than everybody had. What exists and is no regular file, such
/// as /dev/null or a pipe, is written to as it stands and never replaced; a link is followed. Gives
/// the system's description of the failure, or nothing on success. A stop that is requested before
/// the new file has taken its place is a failure like any other.
[[nodiscard]] std::optional<std::string> writeFileAtomically(const std::string& path,
                                                             std::string_view content,
                                                             const std::stop_token& stop = {});

/// Whether that would write to what stands at the path. It may take for ever then: a pipe waits for
/// its reader.
[[nodiscard]] bool isWrittenInPlace(const std::string& path);

/// The same for a file that belongs to the program alone: what stands at the path itself is
/// replaced whatever it is, a link, a pipe and a device among them, so that no opening waits and
/// nothing is written elsewhere. Only a directory stays, and is a failure. A new file is the user's
/// alone.
[[nodiscard]] std::optional<std::string> replaceFileAtomically(const std::string& path,
                                                               std::string_view content);

} // namespace veridane
