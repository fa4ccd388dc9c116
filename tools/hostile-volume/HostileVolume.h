#pragma once

#include "model/ScanItem.h"
#include "support/VolumeBuilder.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A Mac whose disk means harm: every trick that a file system or a file can play, and among them
/// good objects, whose verdicts no trick may change.
namespace veridane::test {

/// What a scan must say of one object.
struct Promise {
    std::string path; // as on the volume, so that it need not be text
    ItemKind kind = ItemKind::application;
    std::optional<CompatibilityStatus> status;     // absent: there is an item, whatever it says
    std::optional<std::vector<std::string>> parts; // names of its Intel-only files; absent: any
};

struct HostileVolume {
    std::vector<Promise> promises;   // each object that a scan must find, once
    std::vector<std::string> silent; // FIFOs, sockets, devices: nobody may open them
    std::size_t damagedFiles = 0;

    /// Below here objects are there to be changed during a scan, or may be none: nothing is
    /// promised of them.
    static bool isUnpromised(std::string_view path);

    /// Applications to play with, numbered from 0: native, with an Intel-only file in them.
    static constexpr int toyCount = 40;
    static std::string toy(int number);

    /// Occurs in every name and every text outside of the volume, and nowhere on it.
    static constexpr std::string_view canary = "CANARY";
};

/// Writes into an empty volume, and what nobody may read into `outside`, an empty folder beside the
/// volume's. The seed decides about the damaged files alone.
[[nodiscard]] HostileVolume writeHostileVolume(VolumeBuilder& mac, VolumeBuilder& outside,
                                               std::uint64_t seed);

} // namespace veridane::test
