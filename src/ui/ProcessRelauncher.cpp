#include "ui/ProcessRelauncher.h"

#include "platform/ProcessStart.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <filesystem>
#include <system_error>
#include <utility>

namespace veridane::ui {
namespace {

namespace fs = std::filesystem;

/// Where the system says that the running program stands.
fs::path runningProgram() {
#ifdef __APPLE__
    return QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString();
#else
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
#endif
}

/// What a shell starts by that name.
fs::path calledProgram(const std::string& name) {
    if (name.find('/') != std::string::npos)
        return name;
    const QString found = QStandardPaths::findExecutable(QFile::decodeName(name.c_str()));
    return QFile::encodeName(found).toStdString();
}

/// The path that the process was called by, if that is where the program is: it may be a link,
/// which leads to the new version after an update. A caller may also call it anything.
std::string executablePath(const std::string& calledAs) {
    const fs::path running = runningProgram();
    const fs::path called = calledProgram(calledAs);
    std::error_code error;
    if (called.empty() || (fs::exists(running, error) && !fs::equivalent(called, running, error)))
        return running.string();
    const fs::path absolute = fs::absolute(called, error);
    return error ? running.string() : absolute.string();
}

#ifdef __APPLE__
/// The bundle around an executable; empty without one.
std::string bundleAround(const std::string& executable) {
    const auto folder = fs::path(executable).parent_path();
    const auto contents = folder.parent_path();
    const bool isInBundle = folder.filename() == "MacOS" && contents.filename() == "Contents";
    return isInBundle ? contents.parent_path().string() : std::string();
}
#endif

} // namespace

std::vector<std::string> relaunchCommand(std::vector<std::string> commandLine) {
    if (commandLine.empty()) // which no shell does, but the system allows
        commandLine.emplace_back();
    commandLine.front() = executablePath(commandLine.front());
#ifdef __APPLE__
    if (const std::string bundle = bundleAround(commandLine.front()); !bundle.empty()) {
        commandLine.front() = "--args";
        commandLine.insert(commandLine.begin(), {"/usr/bin/open", "-n", bundle});
    }
#endif
    return commandLine;
}

ProcessRelauncher::ProcessRelauncher(std::vector<std::string> command)
    : ProcessRelauncher(std::move(command),
                        [](const auto& arguments) { static_cast<void>(startProcess(arguments)); }) {
}

ProcessRelauncher::ProcessRelauncher(std::vector<std::string> command, Launch launch)
    : m_command(std::move(command)), m_launch(std::move(launch)) {}

void ProcessRelauncher::relaunch() {
    if (std::exchange(m_hasLaunched, true))
        return;
    m_launch(m_command);
    // Later, as it closes the window whose button has been pressed, and with it all others.
    QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit,
                              Qt::QueuedConnection);
}

} // namespace veridane::ui
