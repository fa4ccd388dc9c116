#include "coordination/CoordinatorFixture.h"
#include "coordination/ProgramVersion.h"

namespace veridane::test {
namespace {

using SystemFacts = VolumeTest;

TEST_F(SystemFacts, TheProcessorIsTheHardwares) {
    struct FixedCapability : VolumeQueries {
        using VolumeQueries::VolumeQueries;
        std::optional<std::int32_t> arm64Capability() const override { return value; }
        std::int32_t value = 0;
    };
    const FileSystem files = volume.files();
    FixedCapability hardware(files);
    for (; hardware.value < 3; ++hardware.value)
        EXPECT_EQ(SystemInfo::current(hardware).isAppleSilicon, hardware.value == 1);
}

TEST_F(SystemFacts, RosettaIsLookedForAndTheVersionReadOnTheVolume) {
    const FileSystem files = volume.files();
    const auto info = [&] {
        return SystemInfo::current(VolumeQueries(files));
    };
    EXPECT_FALSE(info().rosettaInstalled);
    volume.folder("/Library/Apple/usr/share/rosetta");
    EXPECT_TRUE(info().rosettaInstalled);
    const std::string path = "/System/Library/CoreServices/SystemVersion.plist";
    const std::string running = info().osVersion;
    EXPECT_FALSE(running.empty());
    volume.file(path, "damaged");
    EXPECT_EQ(info().osVersion, running);
    PlistDictionary plist = {{"ProductVersion", "14.5"}};
    volume.plist(path, plist);
    EXPECT_EQ(info().osVersion, "Version 14.5");
    plist.push_back({"ProductBuildVersion", "23F79"});
    volume.plist(path, plist);
    EXPECT_EQ(info().osVersion, "Version 14.5 (Build 23F79)");
}

TEST_F(SystemFacts, TheProgramsVersionIsThatOfTheBundleThatItRunsFrom) {
    const FileSystem files = volume.files();
    const auto inBundle = [this](const char* name, const PlistDictionary& list) {
        volume.plist(std::string("/") + name + ".app/Contents/Info.plist", list);
    };
    inBundle("Both", {{"CFBundleShortVersionString", "2.3"}, {"CFBundleVersion", "45"}});
    inBundle("NoBuild", {{"CFBundleShortVersionString", "2.3"}});
    inBundle("NoText", {{"CFBundleShortVersionString", 2}, {"CFBundleVersion", PlistList{"45"}}});
    volume.file("/Broken.app/Contents/Info.plist", "<plist>").fifo("/Pipe.app/Contents/Info.plist");
    const std::pair<const char*, const char*> cases[] = {
        {"/Both.app/Contents/MacOS/Veridane", "2.3 (45)"},
        {"/NoBuild.app/Contents/MacOS/Veridane", "2.3 (1)"},
        {"/NoText.app/Contents/MacOS/Veridane", "1.0 (1)"},
        {"/Broken.app/Contents/MacOS/Veridane", "1.0 (1)"},
        {"/Pipe.app/Contents/MacOS/Veridane", "1.0 (1)"},
        {"/Both.app/Contents/Helpers/Veridane", "1.0 (1)"}, // the product's own
        {"", "1.0 (1)"},
    };
    for (const auto& [program, version] : cases)
        EXPECT_EQ(programVersion(files, Path(program)), version) << program;
}

TEST(NetworkMonitor, FollowsTheWatcherOnTheMainThreadAlone) {
    DrainedQueue queue;
    std::string calls;
    auto owned = std::make_unique<HandDrivenWatcher>(calls);
    HandDrivenWatcher& watcher = *owned;
    auto monitor = std::make_unique<NetworkMonitor>(std::move(owned), queue);
    monitor->start();
    monitor->start();
    EXPECT_EQ(calls, "start ");
    watcher.onPath(PathStatus::satisfied);
    EXPECT_FALSE(monitor->isOnline().get()) << "not before the main thread's turn";
    monitor->stop();
    queue.drain();
    EXPECT_TRUE(monitor->isOnline().get()) << "what was on its way still counts";
    watcher.onPath(PathStatus::unsatisfied);
    monitor.reset(); // what is on its way finds it gone
    queue.drain();
    EXPECT_EQ(calls, "start cancel cancel ");
}

} // namespace
} // namespace veridane::test
