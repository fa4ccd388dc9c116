#include "coordination/NetworkMonitor.h"
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

TEST_F(SystemFacts, TheProcessorIsTheHardwaresAndElseTheBuilds) {
    const FileSystem files = volume.files();
#ifdef __x86_64__
    EXPECT_FALSE(SystemInfo::current(VolumeQueries(files)).isAppleSilicon);
#endif
    for (const int capability : {0, 1, 2})
        EXPECT_EQ(SystemInfo::current(FixedCapability(files, capability)).isAppleSilicon,
                  capability == 1);
}

TEST_F(SystemFacts, AnyOfItsFilesShowsRosetta) {
    for (const char* path :
         {"/Library/Apple/usr/libexec/oah/libRosettaRuntime", "/Library/Apple/usr/share/rosetta",
          "/Library/Apple/usr/libexec/oah/RosettaLinux"}) {
        VolumeBuilder mac;
        const FileSystem files = mac.files();
        EXPECT_FALSE(SystemInfo::current(VolumeQueries(files)).rosettaInstalled);
        mac.file(path, "");
        EXPECT_TRUE(SystemInfo::current(VolumeQueries(files)).rosettaInstalled) << path;
    }
}

TEST_F(SystemFacts, TheSystemIsTheVolumesIfItTellsAndElseTheRunningOne) {
    const FileSystem files = volume.files();
    const std::string path = "/System/Library/CoreServices/SystemVersion.plist";
    const auto version = [&] {
        return SystemInfo::current(VolumeQueries(files)).osVersion;
    };
    const std::string running = version();
    EXPECT_FALSE(running.empty());
    volume.file(path, "damaged");
    EXPECT_EQ(version(), running);
    volume.plist(path, PlistDictionary{{"ProductVersion", "14.5"}});
    EXPECT_EQ(version(), "Version 14.5");
    volume.plist(path,
                 PlistDictionary{{"ProductVersion", "14.5"}, {"ProductBuildVersion", "23F79"}});
    EXPECT_EQ(version(), "Version 14.5 (Build 23F79)");
}

struct HandDrivenWatcher : PathWatcher {
    explicit HandDrivenWatcher(std::string& recorded) : calls(recorded) {}
    void start(std::function<void(PathStatus)> handler) override {
        calls += "start ";
        onPath = std::move(handler);
    }
    void cancel() override { calls += "cancel "; }

    std::string& calls;
    std::function<void(PathStatus)> onPath;
};

TEST(NetworkMonitor, FollowsTheWatcherOnTheMainThreadAlone) {
    DrainedQueue queue;
    std::string calls;
    auto owned = std::make_unique<HandDrivenWatcher>(calls);
    HandDrivenWatcher& watcher = *owned;
    auto monitor = std::make_unique<NetworkMonitor>(std::move(owned), queue);
    monitor->stop();
    EXPECT_FALSE(monitor->started().get());
    monitor->start();
    monitor->start();
    EXPECT_EQ(calls, "cancel start ");
    watcher.onPath(PathStatus::satisfied);
    EXPECT_FALSE(monitor->isOnline().get()) << "not before the main thread's turn";
    queue.drain();
    EXPECT_TRUE(monitor->isOnline().get());
    for (const PathStatus status : {PathStatus::requiresConnection, PathStatus::unsatisfied}) {
        watcher.onPath(PathStatus::satisfied);
        watcher.onPath(status);
        queue.drain();
        EXPECT_FALSE(monitor->isOnline().get());
    }
    watcher.onPath(PathStatus::satisfied);
    monitor->stop();
    queue.drain();
    EXPECT_TRUE(monitor->isOnline().get()) << "what was on its way still counts";
    monitor->stop();
    EXPECT_TRUE(monitor->isOnline().get());
    watcher.onPath(PathStatus::unsatisfied);
    monitor.reset();
    queue.drain();
}

} // namespace
} // namespace veridane::test
