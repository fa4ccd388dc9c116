#include "sample/SampleVolume.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>

namespace {

constexpr int failed = 1, misused = 2;
constexpr const char* usage = "usage: veridane-sample DIR";

/// Why the sample must not be written there; empty if it may.
std::string objection(const std::string& directory) {
    std::error_code error;
    if (!std::filesystem::exists(directory, error))
        return error ? error.message() : "";
    if (!std::filesystem::is_directory(directory, error))
        return "not a directory";
    const bool isEmpty = std::filesystem::is_empty(directory, error);
    if (error)
        return error.message();
    return isEmpty ? "" : "not empty";
}

} // namespace

/// Writes the sample volume into a new or empty directory.
int main(int argumentCount, char** arguments) {
    const std::string directory = argumentCount == 2 ? arguments[1] : "";
    if (directory == "-h" || directory == "--help") {
        std::cout << usage << '\n';
        return 0;
    }
    if (directory.empty() || directory.starts_with('-')) {
        std::cerr << usage << '\n';
        return misused;
    }
    if (const std::string reason = objection(directory); !reason.empty()) {
        std::cerr << "veridane-sample: " << directory << ": " << reason << '\n';
        return misused;
    }

    veridane::test::VolumeBuilder volume(directory);
    veridane::sample::writeSampleVolume(volume);
    if (volume.failure()) {
        std::cerr << "veridane-sample: " << *volume.failure() << '\n';
        return failed;
    }
    return 0;
}
