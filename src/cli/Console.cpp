#include "cli/Console.h"

#include "platform/Text.h"

namespace veridane::cli {

void complain(const Console& console, std::string_view message) {
    console.err << programName << ": " << text::printable(message) << '\n' << std::flush;
}

void complainOfTrouble(const Console& console, const FileSystem& files) {
    if (const auto trouble = files.trouble())
        complain(console,
                 "not everything could be read, so the result may lack something: " + *trouble);
}

bool mayDeliver(const Console& console, const std::stop_token& stop) {
    if (console.endCancelling)
        console.endCancelling();
    return !stop.stop_requested();
}

bool print(const Console& console, std::string_view text) {
    console.out << text << std::flush;
    if (console.out)
        return true;
    complain(console, "standard output cannot be written");
    return false;
}

} // namespace veridane::cli
