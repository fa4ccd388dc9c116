#include "sample/SampleProgram.h"

#include <filesystem>
#include <iostream>
#include <system_error>

namespace veridane::sample {
namespace {

/// Why nothing must be written there; empty if it may.
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

ExitStatus writeVolume(const std::string& programName, const std::string& directory,
                       const std::function<void(test::VolumeBuilder&)>& write) {
    if (const std::string reason = objection(directory); !reason.empty()) {
        std::cerr << programName << ": " << directory << ": " << reason << '\n';
        return misused;
    }
    test::VolumeBuilder volume(directory);
    write(volume);
    if (volume.failure()) {
        std::cerr << programName << ": " << *volume.failure() << '\n';
        return failed;
    }
    return written;
}

} // namespace veridane::sample
