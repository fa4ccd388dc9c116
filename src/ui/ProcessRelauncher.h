#pragma once

#include "ui/Relauncher.h"

#include <functional>
#include <string>
#include <vector>

namespace veridane::ui {

/// The command that starts this program once more. `commandLine` is what the process was started
/// with, in full: the toolkit takes out what it understands. To be called at the start, with a
/// `QCoreApplication`: later an update may have put another program in the place of this one.
[[nodiscard]] std::vector<std::string> relaunchCommand(std::vector<std::string> commandLine);

/// Starts a command in a new process and quits the application. Only once: the second press of a
/// double click starts nothing more.
class ProcessRelauncher : public Relauncher {
public:
    using Launch = std::function<void(const std::vector<std::string>& command)>;

    explicit ProcessRelauncher(std::vector<std::string> command);
    ProcessRelauncher(std::vector<std::string> command, Launch launch);

    void relaunch() override;

private:
    std::vector<std::string> m_command;
    Launch m_launch;
    bool m_hasLaunched = false;
};

} // namespace veridane::ui
