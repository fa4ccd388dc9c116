#include "cli/Commands.h"
#include "cli/Interruption.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value != '\0';
}

bool isDumbTerminal() {
    const char* terminal = std::getenv("TERM");
    return terminal && std::string_view(terminal) == "dumb";
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const veridane::cli::Console console{
        .out = std::cout,
        .err = std::cerr,
        .coloursOut = ::isatty(STDOUT_FILENO) && !isSet("NO_COLOR") && !isDumbTerminal(),
        .showsProgress = ::isatty(STDERR_FILENO) && !isDumbTerminal(),
    };
    const veridane::cli::Interruption interruption;
    return veridane::cli::run(arguments, console, interruption.token());
}
