#pragma once

#include "sample/SampleObjects.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

/// The Macs of a company: some forty objects each, chosen by department, by how the Mac came to be
/// set up, and by chance. The same seed and number always give the same Mac.
namespace veridane::sample {

/// A second visit finds some of the old editions replaced and nothing else changed.
enum class Visit { first, second };

struct FleetMac {
    std::string_view department;
    std::vector<Bundle> bundles;
    std::vector<Component> components; // of those bundles
    std::vector<Tool> tools;           // and the programs of services
    std::vector<Service> services;
    std::deque<std::string> texts; // that the rows point to

    FleetMac() = default;
    FleetMac(FleetMac&&) = default;
    FleetMac(const FleetMac&) = delete;
};

[[nodiscard]] FleetMac fleetMac(std::uint64_t seed, int number, Visit visit);

/// Writes into an empty volume.
void write(test::VolumeBuilder& volume, const FleetMac& mac);

/// What a scan has to find, from the tables alone: a line for each object with its status, 1 where
/// Intel-only parts hide in it or else 0, and its path, separated by tabs and sorted.
[[nodiscard]] std::string expectedObjects(const FleetMac& mac);

} // namespace veridane::sample
