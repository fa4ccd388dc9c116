#include "sample/SampleVolume.h"

#include "model/NativeCounterparts.h"
#include "model/Recommendation.h"
#include "scan/SystemScanner.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace veridane {
namespace {

std::vector<ScanItem> scanned(const test::VolumeBuilder& volume) {
    const FileSystem files = volume.files();
    ScanOptions options;
    options.includeSystemApps = true;
    auto items = SystemScanner::scan(files, SearchLocations(SearchLocations::homesOnVolume(files)),
                                     options, [](const ScanProgress&) {}, {});
    for (ScanItem& item : items)
        item.id = Uuid(); // new in every scan
    return items;
}

/// A line for each entry: its kind, size or target, and path.
std::set<std::string> listing(const test::VolumeBuilder& volume) {
    namespace fs = std::filesystem;
    std::set<std::string> lines;
    for (const auto& entry : fs::recursive_directory_iterator(volume.root())) {
        const std::string path = entry.path().lexically_relative(volume.root()).string();
        if (entry.is_symlink())
            lines.insert(path + " -> " + fs::read_symlink(entry).string());
        else if (entry.is_regular_file())
            lines.insert(path + ": " + std::to_string(entry.file_size()));
        else
            lines.insert(path + (entry.is_directory() ? "/" : ": special"));
    }
    return lines;
}

TEST(SampleVolume, WrittenTwiceItIsTheSameTreeAndGivesTheSameScan) {
    test::VolumeBuilder first, second;
    sample::writeSampleVolume(first);
    sample::writeSampleVolume(second);
    EXPECT_EQ(listing(first), listing(second));

    const auto items = scanned(first), again = scanned(second);
    ASSERT_EQ(items.size(), again.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        EXPECT_EQ(items[i], again[i]) << items[i].path;
}

TEST(SampleVolume, ShowsEveryStatusUrgencyKindAndSourceOfAScan) {
    test::VolumeBuilder volume;
    sample::writeSampleVolume(volume);
    const auto items = scanned(volume);
    const NativeCounterparts counterparts(items);

    std::set<CompatibilityStatus> statuses;
    std::set<Urgency> urgencies;
    std::set<ItemKind> kinds;
    std::set<UpdateSource> sources;
    std::set<std::string> twins;
    for (const ScanItem& item : items) {
        const Urgency urgency = urgencyOf(item, counterparts);
        statuses.insert(item.status);
        urgencies.insert(urgency);
        kinds.insert(item.kind);
        sources.insert(item.updateSource);
        if (urgency == Urgency::switchToNative)
            twins.insert(item.path);
    }
    EXPECT_EQ(statuses.size(), compatibilityStatusCount);
    EXPECT_EQ(urgencies.size(), std::size_t{urgencyCount});
    EXPECT_EQ(kinds,
              (std::set{ItemKind::application, ItemKind::commandLineTool, ItemKind::launchService,
                        ItemKind::audioPlugin, ItemKind::systemExtension}));
    EXPECT_EQ(sources, (std::set{UpdateSource::macAppStore, UpdateSource::sparkle,
                                 UpdateSource::developerID, UpdateSource::unsigned_}));
    // By identifier the first, by name in spite of its case, a plug-in's other form, a tool.
    EXPECT_EQ(twins, (std::set<std::string>{"/Applications/Archiv/Lichtpultchen 2.app",
                                            "/Applications/Wortmühlrädchen.app",
                                            "/Library/Audio/Plug-Ins/VST/Bassgrübchen.vst",
                                            "/usr/local/bin/flinkpacker"}));
    EXPECT_GE(items.size(), 55U);
    EXPECT_LE(items.size(), 70U);
}

} // namespace
} // namespace veridane
