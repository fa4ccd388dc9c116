#include "hostile-volume/HostileVolume.h"

#include <charconv>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace {

constexpr int failed = 1, misused = 2;
constexpr const char* usage = "usage: veridane-hostile-volume DIR [SEED]";

std::optional<std::uint64_t> numberIn(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

} // namespace

/// Writes the hostile volume into DIR/mac, and what no scan of it may read into DIR/outside.
int main(int argumentCount, char** arguments) {
    const std::string directory = argumentCount > 1 ? arguments[1] : "";
    const auto seed = argumentCount > 2 ? numberIn(arguments[2]) : 1;
    if (directory == "-h" || directory == "--help") {
        std::cout << usage << '\n';
        return 0;
    }
    if (directory.empty() || directory.starts_with('-') || argumentCount > 3 || !seed) {
        std::cerr << usage << '\n';
        return misused;
    }
    std::error_code error;
    const std::string whole = std::filesystem::absolute(directory, error).string();
    if (error || std::filesystem::exists(whole + "/mac", error)) {
        std::cerr << "veridane-hostile-volume: " << directory << ": holds a volume already\n";
        return misused;
    }

    veridane::test::VolumeBuilder mac(whole + "/mac"), outside(whole + "/outside");
    const auto written = writeHostileVolume(mac, outside, *seed);
    for (const auto* volume : {&mac, &outside}) {
        if (volume->failure()) {
            std::cerr << "veridane-hostile-volume: " << *volume->failure() << '\n';
            return failed;
        }
    }
    std::cout << written.promises.size() << " objects, " << written.damagedFiles
              << " damaged files\n"
              << "scan it:   veridane-cli scan --volume " << directory << "/mac\n"
              << "remove it: chmod -R u+rwX " << directory << " && rm -rf " << directory << '\n';
    return 0;
}
