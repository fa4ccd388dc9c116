#include "scan/SystemScanner.h"
#include "support/VolumeTest.h"

#include <tuple>

namespace veridane::test {
namespace {

const std::string bundles = "Analysiere Programme … ", tools = "Analysiere Dienste & Tools … ";

class Driver : public VolumeTest {
protected:
    // Gives the paths, and requests a stop at the report with that count.
    Texts scan(const ScanOptions& options = {}, std::int64_t stopAt = -1) {
        reports.clear();
        std::stop_source stop;
        const auto onProgress = [&](const ScanProgress& progress) {
            reports.push_back(progress.phase + ' ' + std::to_string(progress.completed) + '/' +
                              std::to_string(progress.total));
            if (progress.completed == stopAt)
                stop.request_stop();
        };
        Texts paths;
        items = SystemScanner::scan(volume.files(), SearchLocations({Path("/Users/anna")}), options,
                                    onProgress, stop.get_token());
        for (const ScanItem& item : items)
            paths.push_back(item.path);
        return paths;
    }
    void addTargets(int bundleCount, int toolCount) {
        for (int i = 0; i < bundleCount; ++i)
            volume.folder("/Applications/" + std::to_string(i) + ".app");
        for (int i = 0; i < toolCount; ++i)
            volume.file("/usr/local/bin/" + std::to_string(i), thinMachO(Slice::arm64));
    }

    std::vector<ScanItem> items;
    Texts reports;
};

TEST_F(Driver, ProgressIsThinnedAndCountsTargets) {
    scan();
    EXPECT_EQ(reports, (Texts{bundles + "0/0", "Fertig 0/0"}));
    addTargets(7, 5);
    scan();
    EXPECT_EQ(reports, (Texts{bundles + "0/12", bundles + "5/12", tools + "10/12", tools + "12/12",
                              "Fertig 12/12"}));
}

TEST_F(Driver, EachOptionOpensItsRootsAndNamesTheKind) {
    volume.plist("/Library/LaunchAgents/f.plist", PlistDictionary{{"Program", "/opt/f"}});
    using enum ItemKind;
    using O = ScanOptions;
    const std::tuple<bool O::*, std::string, ItemKind> cases[] = {
        {&O::includeApplications, "/Applications/A.app", application},
        {&O::includeSystemApps, "/System/Applications/B.app", application},
        {&O::includeAudioPlugins, "/Users/anna/Library/Audio/Plug-Ins/VST3/C.Component",
         audioPlugin},
        {&O::includeExtensions, "/Library/SystemExtensions/1-2/D.systemextension", systemExtension},
        {&O::includeCommandLineTools, "/Users/anna/.local/bin/e", commandLineTool},
        {&O::includeLaunchServices, "/opt/f", launchService},
    };
    for (const auto& [option, path, kind] : cases)
        volume.file(path, thinMachO(Slice::arm64));
    for (const auto& [option, path, kind] : cases) {
        ScanOptions options{false, false, false, false, false, false};
        options.*option = true;
        EXPECT_EQ(scan(options), Texts{path});
        EXPECT_TRUE(items.size() == 1 && items[0].kind == kind) << path;
    }
    EXPECT_EQ(scan().size(), 5U); // Apple's own applications only on request
}

TEST_F(Driver, OfSeveralWaysToOneObjectTheFirstStays) {
    volume.folder("/Applications/Utilities/Twice.app");
    volume.link("/Users/anna/Applications", "/Applications");
    volume.file("/opt/homebrew/Cellar/x/bin/x", thinMachO(Slice::arm64));
    volume.link("/opt/homebrew/bin/x", "../Cellar/x/bin/x");
    volume.link("/usr/local/bin/x", "/opt/homebrew/Cellar/x/bin/x");
    volume.plist("/Library/LaunchAgents/x.plist", PlistDictionary{{"Program", "/usr/local/bin/x"}});
    EXPECT_EQ(scan(), (Texts{"/Applications/Utilities/Twice.app", "/usr/local/bin/x"}));
}

TEST_F(Driver, NamesThatAreNoTextAreShownWithReplacementsAndStayApart) {
    volume.file("/usr/local/bin/a\xFF", thinMachO(Slice::arm64));
    volume.file("/usr/local/bin/a\xFE", thinMachO(Slice::arm64));
    EXPECT_EQ(scan(), (Texts{"/usr/local/bin/a\uFFFD", "/usr/local/bin/a\uFFFD"}));
}

TEST_F(Driver, ProgramsAreSortedByStatusThenByNameWithoutRegardToCase) {
    const std::string root = "/usr/local/bin/";
    for (const char* native : {"Beta", "alpha", "Äpfel"})
        volume.file(root + native, thinMachO(Slice::arm64));
    volume.file(root + "Zeta", thinMachO(Slice::x86_64)).file(root + "Old", thinMachO(Slice::i386));
    volume.folder("/Applications/Mystery.app").file(root + ".hidden", thinMachO(Slice::arm64));
    volume.folder(root + "folder").file(root + "script", "#!/bin/sh\n").fifo(root + "fifo");
    EXPECT_EQ(scan(), (Texts{root + "Old", root + "Zeta", "/Applications/Mystery.app",
                             root + "alpha", root + "Äpfel", root + "Beta"}));
}

TEST_F(Driver, AStoppedScanReportsNothingFurtherAndKeepsWhatItHas) {
    addTargets(7, 3);
    EXPECT_EQ(scan({}, 5).size(), 5U);
    EXPECT_EQ(reports, (Texts{bundles + "0/10", bundles + "5/10"}));
    scan({}, 10); // too late to stop anything
    EXPECT_EQ(reports.back(), "Fertig 10/10");
}

} // namespace
} // namespace veridane::test
