#pragma once

#include <optional>
#include <string>

namespace veridane::ui {

/// Asks the user for a place to save to.
class SavePanel {
public:
    virtual ~SavePanel() = default;

    /// Waits for the answer; gives the file's path on this machine, or nothing if the user cancels.
    [[nodiscard]] virtual std::optional<std::string>
    chooseFile(const std::string& proposedName) = 0;
};

} // namespace veridane::ui
