#include "sample-fleet/Fleet.h"
#include "sample/SampleProgram.h"

#include <charconv>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

namespace {

using namespace veridane::sample;

constexpr const char* programName = "veridane-sample-fleet";
constexpr const char* usage =
    "usage: veridane-sample-fleet [--seed N] [--second-visit] NUMBER DIR\n"
    "       veridane-sample-fleet [--seed N] [--second-visit] --expect NUMBER\n";

struct Call {
    std::uint64_t seed = 1;
    int number = 0;
    Visit visit = Visit::first;
    bool onlyExpects = false;
    std::string directory;
};

template <typename Number>
bool read(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool read(std::span<char*> arguments, Call& call) {
    std::size_t i = 0;
    for (; i < arguments.size() && arguments[i][0] == '-'; ++i) {
        const std::string_view option = arguments[i];
        if (option == "--second-visit")
            call.visit = Visit::second;
        else if (option == "--expect")
            call.onlyExpects = true;
        else if (option != "--seed" || ++i == arguments.size() || !read(arguments[i], call.seed))
            return false;
    }
    const auto rest = arguments.subspan(i);
    if (rest.size() != (call.onlyExpects ? 1u : 2u) || !read(rest.front(), call.number))
        return false;
    call.directory = rest.back();
    return call.number > 0 && !call.directory.empty();
}

} // namespace

/// Writes a Mac of the fleet into a new or empty directory, or tells what a scan has to find there.
int main(int argumentCount, char** arguments) {
    Call call;
    if (!read(std::span(arguments, static_cast<std::size_t>(argumentCount)).subspan(1), call)) {
        std::cerr << usage;
        return misused;
    }
    const FleetMac mac = fleetMac(call.seed, call.number, call.visit);
    if (call.onlyExpects) {
        std::cout << expectedObjects(mac) << std::flush;
        return std::cout ? written : failed;
    }
    return writeVolume(programName, call.directory,
                       [&mac](veridane::test::VolumeBuilder& volume) { write(volume, mac); });
}
