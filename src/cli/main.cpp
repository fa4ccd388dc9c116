#include "cli/Commands.h"
#include "cli/Interruption.h"
#include "platform/Environment.h"
#include "platform/StandardDescriptors.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

namespace {

bool isSet(const char* variable) {
    return veridane::Environment::variable(variable).has_value();
}

bool isDumbTerminal() {
    return veridane::Environment::variable("TERM") == "dumb";
}

std::size_t terminalColumns() {
    struct winsize size {};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return 80; // what a terminal has that does not tell
    return size.ws_col;
}

} // namespace

int main(int argc, char** argv) {
    veridane::fillStandardDescriptors();
    // A reader that goes away is an output that cannot be written, and told like any other. So is a
    // file that would grow beyond the size that this process is allowed.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    veridane::cli::Interruption interruption;
    const veridane::cli::Console console{
        .out = std::cout,
        .err = std::cerr,
        .coloursOut = ::isatty(STDOUT_FILENO) && !isSet("NO_COLOR") && !isDumbTerminal(),
        .showsProgress = ::isatty(STDERR_FILENO) && !isDumbTerminal(),
        .columns = terminalColumns(),
        .endCancelling = [&interruption] { interruption.release(); },
    };
    const int status = veridane::cli::run(arguments, console, interruption.token());
    interruption.release();
    if (status == veridane::cli::interrupted)
        interruption.endAsAsked();
    return status;
}
