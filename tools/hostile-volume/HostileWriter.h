#pragma once

#include "hostile-volume/HostileVolume.h"
#include "hostile-volume/Mutator.h"

#include <string>
#include <string_view>
#include <vector>

namespace veridane::test {

/// Writes the hostile volume. Shared by the sources that do so, and nothing for a test.
class HostileWriter {
public:
    using Texts = std::vector<std::string>;

    HostileWriter(VolumeBuilder& mac, VolumeBuilder& outside, std::uint64_t seed)
        : m_mac(mac), m_outside(outside), m_mutator(seed) {}

    HostileVolume run();

private:
    void promise(const std::string& path, ItemKind kind, std::optional<CompatibilityStatus> status,
                 std::optional<Texts> parts = Texts());

    /// A native application with an Intel-only file in it: to judge it, both must be read.
    void writeHalf(const std::string& path);

    using Maker = VolumeBuilder& (VolumeBuilder::*)(std::string_view);
    void silent(const std::string& path, Maker make);
    void fifo(const std::string& path) { silent(path, &VolumeBuilder::fifo); }
    void socket(const std::string& path) { silent(path, &VolumeBuilder::socket); }
    void device(const std::string& path) { silent(path, &VolumeBuilder::device); }
    [[nodiscard]] bool stands(const std::string& path) const;

    /// Texts of links that would lead to a file outside, if they meant on the volume what they mean
    /// to the machine that it is mounted on.
    [[nodiscard]] Texts waysOutside(const std::string& file) const;

    void writeOutside();
    void writeGoodObjects();
    void writeLinks();
    void writeDetours();
    void writeNames();
    void writeTools();
    void writeServices();
    void writeRoots();

    // Of bundles
    void writeTricksBesideGoodFiles();
    void writeTricksAroundThePrograms();
    void writeTricksInPlaceOfBundles();
    void writeLists();
    void writeShortFiles(const std::string& bundle, Texts& parts);
    void writeDolls(const std::string& bundle, Texts& parts);

    // By the thousand
    void writeDamage();
    [[nodiscard]] Bytes damaged(const Bytes& bytes);

    VolumeBuilder& m_mac;
    VolumeBuilder& m_outside;
    Mutator m_mutator;
    HostileVolume m_result;
    const Bytes m_native = thinMachO(Slice::arm64), m_intel = thinMachO(Slice::x86_64);
};

inline constexpr std::int64_t terabyte = std::int64_t{1} << 40;

/// A file name may hold every byte but two.
[[nodiscard]] std::vector<std::string> namesOfEveryByte();

} // namespace veridane::test
