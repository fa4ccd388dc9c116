#include "ui/LaunchArguments.h"

#include "platform/Version.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

namespace veridane::ui {
namespace {

constexpr const char* programDescription =
    "Shows the software on a Mac that depends on Rosetta 2, which macOS 28 takes away.\n"
    "Only reads; nothing on the examined disk is changed.";

constexpr const char* programFooter = R"(Examples:
  veridane
      This machine.
  veridane --volume /media/mac
      A mounted disk, with the homes of all its users.

For a terminal or a script there is veridane-cli.)";

// What a script passes of a variable that is not set must not fall back to this machine.
std::string emptyIsWrong(const std::string& given) {
    return given.empty() ? "must not be empty" : "";
}

// The library would take "[a]" for a list of values. As a path it means the same behind "./".
void protectBrackets(std::vector<std::string>& arguments) {
    for (std::string& argument : arguments) {
        if (argument.starts_with('[') && argument.ends_with(']'))
            argument.insert(0, "./");
    }
}

// They are not for people, and so not known to the library that explains itself to them.
std::vector<std::string> takeSeeds(std::vector<std::string>& arguments) {
    const auto isNoSeed = [](const std::string& argument) {
        return argument != "UITEST_SEED_DATA" && argument != "UITEST_AUTOMATE_PROGRAM_FILTER";
    };
    const auto seeds = std::stable_partition(arguments.begin(), arguments.end(), isNoSeed);
    std::vector<std::string> taken(seeds, arguments.end());
    arguments.erase(seeds, arguments.end());
    return taken;
}

} // namespace

std::variant<LaunchArguments, LaunchAnswer>
parseLaunchArguments(std::vector<std::string> arguments) {
    LaunchArguments launch;
    launch.seeds = takeSeeds(arguments);
    CLI::App program(programDescription, "veridane");
    program.set_version_flag("--version", std::string("Veridane ") + productVersion);
    program.add_option("--volume", launch.volume, "Root folder of the Mac to examine (default: /)")
        ->type_name("DIR")
        ->check(CLI::Validator(emptyIsWrong, ""));
    program
        .add_option("--home", launch.homes,
                    "A home folder on the volume, such as /Users/anna; can be repeated\n"
                    "(default: all in /Users of the volume; without one, your own)")
        ->type_name("PATH")
        ->allow_extra_args(false)
        ->check(CLI::Validator(emptyIsWrong, ""));
    program.footer(programFooter);
    try {
        protectBrackets(arguments);
        std::ranges::reverse(arguments); // the library takes them from the end
        program.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return LaunchAnswer{program.help()};
    } catch (const CLI::CallForVersion& version) {
        return LaunchAnswer{std::string(version.what()) + "\n"};
    } catch (const CLI::Error& error) {
        const std::string text = error.what();
        return LaunchAnswer{text.substr(0, text.find('\n')) + " (see --help)", true};
    }
    return launch;
}

} // namespace veridane::ui
