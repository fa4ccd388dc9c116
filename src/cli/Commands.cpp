#include "cli/Commands.h"

#include "cli/Arguments.h"
#include "cli/InspectCommand.h"
#include "cli/ScanCommand.h"

namespace veridane::cli {
namespace {

struct Runner {
    const Console& console;
    const std::stop_token& stop;

    ExitStatus operator()(const ScanArguments& arguments) const {
        setLanguage(arguments.language);
        return scan(arguments, console, stop);
    }
    ExitStatus operator()(const InspectArguments& arguments) const {
        setLanguage(arguments.language);
        return inspect(arguments, console, stop);
    }
    ExitStatus operator()(const Answer& answer) const {
        if (answer.isError) {
            complain(console, answer.text);
            return failure;
        }
        return print(console, answer.text) ? success : failure;
    }
};

} // namespace

ExitStatus run(const std::vector<std::string>& arguments, const Console& console,
               const std::stop_token& stop) {
    return std::visit(Runner{console, stop}, parseArguments(arguments));
}

} // namespace veridane::cli
