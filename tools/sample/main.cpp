#include "sample/SampleProgram.h"
#include "sample/SampleVolume.h"

#include <iostream>
#include <string>

namespace {

constexpr const char* usage = "usage: veridane-sample DIR";

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
        return veridane::sample::misused;
    }
    return veridane::sample::writeVolume("veridane-sample", directory,
                                         veridane::sample::writeSampleVolume);
}
