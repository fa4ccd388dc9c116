#include "platform/Environment.h"
#include "platform/MessageBus.h"
#include "platform/StandardDescriptors.h"
#include "platform/Text.h"
#include "ui/LaunchArguments.h"
#include "ui/QuitSignals.h"
#include "ui/VeridaneApp.h"

#include <QApplication>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace {

using namespace veridane;
using namespace veridane::ui;

constexpr int failure = 2;

// The window itself opens a dozen and more of them with each further library; the rest is for the
// scan and the network.
constexpr std::size_t neededFiles = 64;

int complain(std::string_view message) {
    std::cerr << "veridane: " << text::printable(message) << std::endl;
    return failure;
}

int tell(const LaunchAnswer& answer) {
    if (answer.isError)
        return complain(answer.text);
    std::cout << answer.text << std::flush;
    return std::cout ? EXIT_SUCCESS : complain("standard output cannot be written");
}

/// Whether the toolkit has anything to try: without, it would abort the process.
bool namesDisplay(const std::vector<std::string>& arguments) {
#ifdef __APPLE__
    return true;
#else
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (Environment::variable(variable))
            return true;
    }
    return std::ranges::any_of(arguments, [](const std::string& argument) {
        const auto name = argument.substr(argument.starts_with("--") ? 1 : 0);
        return name.starts_with("-platform") || name.starts_with("-display");
    });
#endif
}

/// The toolkit would wait for its answer without end. Programs that we start would as well.
void leaveSilentBus() {
    if (!MessageBus::isSilent(MessageBus::sessionAddress()))
        return;
    complain("the desktop's message bus does not answer; going on without it");
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
}

/// The toolkit's messages while it looks for a display. Where it fails it would end in an abort.
void endWithoutAbort(QtMsgType type, const QMessageLogContext&, const QString& message) {
    const std::string text = message.toStdString();
    complain(type == QtFatalMsg ? "no window can be shown" : text);
    if (type == QtFatalMsg)
        std::_Exit(failure);
}

} // namespace

int main(int argc, char** argv) {
    fillStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is a failure to write like any other
    std::vector<std::string> commandLine(argv, argv + argc);
    const std::vector<std::string> given(argv + 1, argv + argc);
    const auto atOnce = parseLaunchArguments(given);
    const auto* answer = std::get_if<LaunchAnswer>(&atOnce);
    // What looks wrong may still be the toolkit's, once that has a display.
    if (answer && (!answer->isError || !namesDisplay(given)))
        return tell(*answer);
    if (!namesDisplay(given))
        return complain("there is no display to show a window on; "
                        "veridane-cli scans in a terminal");

    if (!canOpenFiles(neededFiles))
        return complain("too few files may be open at the same time");
    leaveSilentBus();
    const auto messageHandler = qInstallMessageHandler(endWithoutAbort);
    const QApplication application(argc, argv); // takes the arguments that are meant for it
    qInstallMessageHandler(messageHandler);
    // The libraries that read files expect numbers in the form of programs, not of people.
    std::setlocale(LC_NUMERIC, "C");

    const auto parsed = parseLaunchArguments({argv + 1, argv + argc});
    const auto* arguments = std::get_if<LaunchArguments>(&parsed);
    if (!arguments)
        return tell(*std::get_if<LaunchAnswer>(&parsed));
    auto opened = openVolume(arguments->volume, arguments->homes);
    auto* volume = std::get_if<ExaminedVolume>(&opened);
    if (!volume)
        return complain(std::get_if<VolumeError>(&opened)->text);

    const QuitSignals quitSignals;
    VeridaneApp app(std::move(*volume), *arguments, std::move(commandLine));
    app.showMainWindow();
    return QApplication::exec();
}
