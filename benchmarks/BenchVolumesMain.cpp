#include "BenchVolumes.h"

#include <iostream>
#include <string_view>

/// Writes one of the volumes that the scan is timed on.
int main(int argumentCount, char** arguments) {
    using namespace veridane::benchmarks;
    const std::string_view kind = argumentCount == 3 ? arguments[1] : "";
    const VolumeSize* size = kind == "small"   ? &smallVolume
                             : kind == "large" ? &largeVolume
                             : kind == "huge"  ? &hugeBundle
                                               : nullptr;
    if (!size) {
        std::cerr << "usage: veridane-bench-volume small|large|huge DIR\n";
        return 2;
    }
    if (const std::string failure = writeVolume(arguments[2], *size); !failure.empty()) {
        std::cerr << "veridane-bench-volume: " << failure << '\n';
        return 1;
    }
    return 0;
}
