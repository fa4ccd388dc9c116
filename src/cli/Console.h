#pragma once

#include "platform/FileSystem.h"

#include <cstddef>
#include <functional>
#include <ostream>
#include <stop_token>
#include <string_view>

namespace veridane::cli {

/// Where a command writes, and what is known of the other end.
struct Console {
    std::ostream& out;
    std::ostream& err;
    bool coloursOut = false;    // `out` is a terminal that wants colours
    bool showsProgress = false; // `err` is a terminal
    std::size_t columns = 80;   // of that terminal

    /// If there is one, called before a result is delivered: from then on Ctrl-C requests no stop.
    std::function<void()> endCancelling;
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

/// Such a line where not all of the files could be read.
void complainOfTrouble(const Console& console, const FileSystem& files);

/// Whether no stop has been requested until now. From here on Ctrl-C ends the process at once: a
/// result may wait for ever for somebody who reads it.
[[nodiscard]] bool mayDeliver(const Console& console, const std::stop_token& stop);

/// Text on `out`; false, with a line on `err`, if it does not get there.
[[nodiscard]] bool print(const Console& console, std::string_view text);

} // namespace veridane::cli
