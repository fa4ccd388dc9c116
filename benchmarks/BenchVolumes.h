#pragma once

#include <string>

namespace veridane::benchmarks {

/// How much a volume holds. File counts are reached to within a few per cent.
struct VolumeSize {
    int applications;
    int files;
    int machOPerThousand; // of the files in bundles
};

constexpr VolumeSize smallVolume = {150, 40'000, 50};
constexpr VolumeSize largeVolume = {400, 400'000, 50};
// Fewer Mach-O files than a scan probes in one bundle, so that it has to open all half a million.
constexpr VolumeSize hugeBundle = {1, 500'000, 7};

/// Writes a volume of bundles and tools into a directory, always the same one for the same size but
/// for the bytes of the signatures. Gives what went wrong, or an empty text.
[[nodiscard]] std::string writeVolume(const std::string& directory, const VolumeSize& size);

} // namespace veridane::benchmarks
