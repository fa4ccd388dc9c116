#pragma once

#include <atomic>
#include <optional>
#include <string>

namespace veridane {

/// Whether an `errno`, or 0, says that nothing that could be read stands at a path. Every other one
/// says that something may stand there, and cannot be read now.
[[nodiscard]] bool isAbsence(int error);

/// Remembers why something that is there could not be read, so that whoever shows a result can tell
/// that it may lack something. Safe on any thread.
class ReadTrouble {
public:
    /// Takes the `errno` of what has failed; one that only tells of an absence does not count.
    void note(int error);

    /// The system's description of the first trouble; of a refused permission only where there was
    /// no other. Nothing if all went well.
    [[nodiscard]] std::optional<std::string> description() const;

private:
    std::atomic<int> m_error{0};
};

} // namespace veridane
