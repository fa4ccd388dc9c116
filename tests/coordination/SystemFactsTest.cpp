#include "coordination/HandDrivenWatcher.h"
#include "coordination/ProgramVersion.h"
#include "coordination/VolumeQueries.h"
#include "platform/DrainedQueue.h"
#include "support/VolumeTest.h"

namespace veridane::test {
namespace {

using SystemFacts = VolumeTest;

struct FixedCapability : VolumeQueries {
    FixedCapability(const FileSystem& files, std::optional<std::int32_t> capability)
        : VolumeQueries(files), value(capability) {}
    std::optional<std::int32_t> arm64Capability() const override { return value; }
    std::optional<std::int32_t> value;
};

TEST_F(SystemFacts, TheProcessorIsTheHardwares) {
    const FileSystem files = volume.files();
    for (const int capability : {0, 1, 2})
        EXPECT_EQ(SystemInfo::current(FixedCapability(files, capability)).isAppleSilicon,
                  capability == 1);
}

TEST_F(SystemFacts, RosettaIsLookedForAndTheVersionReadOnTheVolume) {
    const FileSystem files = volume.files();
    EXPECT_FALSE(SystemInfo::current(VolumeQueries(files)).rosettaInstalled);
    volume.folder("/Library/Apple/usr/share/rosetta");
    EXPECT_TRUE(SystemInfo::current(VolumeQueries(files)).rosettaInstalled);
    const std::string path = "/System/Library/CoreServices/SystemVersion.plist";
    const auto version = [&] {
        return SystemInfo::current(VolumeQueries(files)).osVersion;
    };
    const std::string running = version();
    EXPECT_FALSE(running.empty());
    volume.file(path, "damaged");
    EXPECT_EQ(version(), running);
    PlistDictionary plist = {{"ProductVersion", "14.5"}};
    volume.plist(path, plist);
    EXPECT_EQ(version(), "Version 14.5");
    plist.push_back({"ProductBuildVersion", "23F79"});
    volume.plist(path, plist);
    EXPECT_EQ(version(), "Version 14.5 (Build 23F79)");
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
    const struct {
        const char* program;
        const char* text;
    } cases[] = {
        {"/Both.app/Contents/MacOS/Veridane", "2.3 (45)"},
        {"/NoBuild.app/Contents/MacOS/Veridane", "2.3 (1)"},
        {"/NoText.app/Contents/MacOS/Veridane", "1.0 (1)"},
        {"/Broken.app/Contents/MacOS/Veridane", "1.0 (1)"},
        {"/Pipe.app/Contents/MacOS/Veridane", "1.0 (1)"},
        {"/Both.app/Contents/Helpers/Veridane", "1.0 (1)"}, // the product's own
        {"/usr/bin/veridane", "1.0 (1)"},
        {"", "1.0 (1)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(programVersion(files, Path(c.program)), c.text) << c.program;
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
    queue.drain();
    EXPECT_TRUE(monitor->isOnline().get());
    watcher.onPath(PathStatus::requiresConnection);
    queue.drain();
    EXPECT_FALSE(monitor->isOnline().get());
    watcher.onPath(PathStatus::satisfied);
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
