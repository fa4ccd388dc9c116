#pragma once

#include <ostream>
#include <string_view>

namespace veridane::cli {

/// Where a command writes, and what is known of the other end.
struct Console {
    std::ostream& out;
    std::ostream& err;
    bool coloursOut = false;    // `out` is a terminal that wants colours
    bool showsProgress = false; // `err` is a terminal
};

inline constexpr const char* programName = "veridane-cli";

/// What the program ends with.
enum ExitStatus : int {
    success = 0,
    attentionNeeded = 1, // only where it was asked for
    failure = 2,         // a wrong call, a missing file, an output that cannot be written
    interrupted = 130,   // as a shell reports SIGINT
};

/// One line on `err` with the program's name in front.
void complain(const Console& console, std::string_view message);

/// Text on `out`; false, with a line on `err`, if it does not get there.
[[nodiscard]] bool print(const Console& console, std::string_view text);

} // namespace veridane::cli
