#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace veridane::ui {

/// What the program is started with.
struct LaunchArguments {
    std::optional<std::string> volume; // a directory of this machine; "/" without
    std::vector<std::string> homes;    // on the volume; empty for the default
    std::vector<std::string> seeds;    // what tests that drive the window ask for

    bool operator==(const LaunchArguments&) const = default;
};

/// A start that is answered by text alone: help, the version, or what is wrong with the call.
struct LaunchAnswer {
    std::string text;
    bool isError = false;
};

/// Reads the arguments behind the program's name, without those of the toolkit.
[[nodiscard]] std::variant<LaunchArguments, LaunchAnswer>
parseLaunchArguments(std::vector<std::string> arguments);

} // namespace veridane::ui
