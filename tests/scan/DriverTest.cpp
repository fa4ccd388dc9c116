#include "scan/SystemScanner.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

using namespace test;
using Texts = std::vector<std::string>;

struct Outcome {
    std::vector<ScanItem> items;
    Texts reports;
};

// Scans, and requests a stop at the report with that count.
Outcome scan(const VolumeBuilder& volume, const ScanOptions& options = {}, std::int64_t stopAt = -1) {
    Outcome outcome;
    std::stop_source stop;
    const auto onProgress = [&](const ScanProgress& progress) {
        outcome.reports.push_back(progress.phase + " " + std::to_string(progress.completed) + "/" +
                              std::to_string(progress.total));
        if (progress.completed == stopAt)
            stop.request_stop();
    };
    outcome.items = SystemScanner::scan(volume.files(), SearchLocations({Path("/Users/anna")}), options,
                                    onProgress, stop.get_token());
    return outcome;
}

Texts pathsOf(const Outcome& outcome) {
    Texts paths;
    for (const ScanItem& item : outcome.items)
        paths.push_back(item.path);
    return paths;
}

void addApplications(VolumeBuilder& volume, int count) {
    for (int i = 0; i < count; ++i)
        volume.bundle("/Applications/App " + std::to_string(i) + ".app")
            .executable("x", {Slice::arm64});
}

void addTools(VolumeBuilder& volume, int count) {
    for (int i = 0; i < count; ++i)
        volume.file("/usr/local/bin/tool" + std::to_string(i), thinMachO(Slice::arm64));
}

TEST(SystemScanner, ProgressIsThinnedAndCountsTargets) {
    const struct {
        const char* what;
        int bundles, files;
        Texts reports;
    } cases[] = {
        {"nothing", 0, 0, {"Analysiere Programme … 0/0", "Fertig 0/0"}},
        {"one bundle",
         1,
         0,
         {"Analysiere Programme … 0/1", "Analysiere Programme … 1/1", "Fertig 1/1"}},
        {"both",
         7,
         5,
         {"Analysiere Programme … 0/12", "Analysiere Programme … 5/12",
          "Analysiere Dienste & Tools … 10/12", "Analysiere Dienste & Tools … 12/12",
          "Fertig 12/12"}},
        {"files alone",
         0,
         11,
         {"Analysiere Programme … 0/11", "Analysiere Dienste & Tools … 10/11",
          "Analysiere Dienste & Tools … 11/11", "Fertig 11/11"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        VolumeBuilder volume;
        addApplications(volume, c.bundles);
        addTools(volume, c.files);
        EXPECT_EQ(scan(volume).reports, c.reports);
    }
}

TEST(SystemScanner, EachOptionOpensItsRootsAndNamesTheKind) {
    VolumeBuilder volume;
    volume.folder("/Applications/A.app").folder("/System/Applications/B.app");
    volume.folder("/Users/anna/Library/Audio/Plug-Ins/VST3/C.Component");
    volume.folder("/Library/SystemExtensions/1-2-3/D.systemextension");
    volume.file("/Users/anna/.local/bin/e", thinMachO(Slice::arm64));
    volume.file("/opt/f", thinMachO(Slice::arm64));
    volume.plist("/Library/LaunchAgents/f.plist", PlistDictionary{{"Program", "/opt/f"}});
    const struct {
        bool ScanOptions::*option;
        const char* name;
        ItemKind kind;
    } cases[] = {
        {&ScanOptions::includeApplications, "A", ItemKind::application},
        {&ScanOptions::includeSystemApps, "B", ItemKind::application},
        {&ScanOptions::includeAudioPlugins, "C", ItemKind::audioPlugin},
        {&ScanOptions::includeExtensions, "D", ItemKind::systemExtension},
        {&ScanOptions::includeCommandLineTools, "e", ItemKind::commandLineTool},
        {&ScanOptions::includeLaunchServices, "f", ItemKind::launchService},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ScanOptions options{false, false, false, false, false, false};
        options.*c.option = true;
        const Outcome outcome = scan(volume, options);
        ASSERT_EQ(outcome.items.size(), 1U);
        EXPECT_EQ(outcome.items[0].name, c.name);
        EXPECT_EQ(outcome.items[0].kind, c.kind);
    }
    EXPECT_EQ(scan(volume).items.size(), 5U); // Apple's own applications only on request
}

TEST(SystemScanner, OfSeveralWaysToOneObjectTheFirstStays) {
    VolumeBuilder volume;
    volume.folder("/Applications/Utilities/Twice.app");
    volume.link("/Users/anna/Applications", "/Applications");
    volume.file("/opt/homebrew/Cellar/x/bin/x", thinMachO(Slice::arm64));
    volume.link("/opt/homebrew/bin/x", "../Cellar/x/bin/x");
    volume.link("/usr/local/bin/x", "/opt/homebrew/Cellar/x/bin/x");
    volume.plist("/Library/LaunchAgents/x.plist",
                 PlistDictionary{{"Label", "service"}, {"Program", "/usr/local/bin/x"}});
    EXPECT_EQ(pathsOf(scan(volume)),
              (Texts{"/Applications/Utilities/Twice.app", "/usr/local/bin/x"}));
}

TEST(SystemScanner, NamesThatAreNoTextAreShownWithReplacementsAndStayApart) {
    VolumeBuilder volume;
    volume.file("/usr/local/bin/a\xFF", thinMachO(Slice::arm64));
    volume.file("/usr/local/bin/a\xFE", thinMachO(Slice::arm64));
    EXPECT_EQ(pathsOf(scan(volume)), (Texts{"/usr/local/bin/a\uFFFD", "/usr/local/bin/a\uFFFD"}));
}

TEST(SystemScanner, ItemsAreSortedByStatusThenByNameWithoutRegardToCase) {
    VolumeBuilder volume;
    const auto add = [&](const char* name, Slice slice) {
        volume.bundle(std::string("/Applications/") + name + ".app").executable("x", {slice});
    };
    add("Beta", Slice::arm64);
    add("alpha", Slice::arm64);
    add("Äpfel", Slice::arm64);
    add("Zeta", Slice::x86_64);
    add("Old", Slice::i386);
    volume.folder("/Applications/Mystery.app");
    Texts names;
    for (const ScanItem& item : scan(volume).items)
        names.push_back(item.name);
    EXPECT_EQ(names, (Texts{"Old", "Zeta", "Mystery", "alpha", "Äpfel", "Beta"}));
}

TEST(SystemScanner, AStoppedScanReportsNothingFurtherAndKeepsWhatItHas) {
    VolumeBuilder volume;
    addApplications(volume, 7);
    addTools(volume, 3);
    const Outcome outcome = scan(volume, {}, 5);
    EXPECT_EQ(outcome.reports, (Texts{"Analysiere Programme … 0/10", "Analysiere Programme … 5/10"}));
    EXPECT_EQ(outcome.items.size(), 5U);
    EXPECT_EQ(scan(volume, {}, 10).reports.back(), "Fertig 10/10"); // too late to stop anything
}

} // namespace
} // namespace veridane
