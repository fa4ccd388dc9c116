#include "ui/NetworkPaths.h"

#include "platform/DrainedQueue.h"
#include "platform/NetworkLinks.h"
#include "ui/NetworkLinkWatcher.h"

#include <QCoreApplication>

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <utility>

namespace veridane::ui {
namespace {

using enum PathStatus;

TEST(NetworkPaths, ALinkWatcherTellsThePresentStateAndEachChangeUntilItIsCancelled) {
    int ends[2] = {-1, -1};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM, 0, ends), 0);
    const Descriptor kernel(ends[0]);
    bool hasWayOut = false;
    NetworkLinkWatcher watcher(Descriptor(ends[1]), [&] { return hasWayOut; });
    std::vector<PathStatus> seen;
    const auto record = [&](PathStatus status) {
        seen.push_back(status);
    };
    const auto change = [&](bool toWayOut) {
        hasWayOut = toWayOut;
        for (const char* piece : {"some", "more"})
            EXPECT_EQ(::send(kernel.get(), piece, 4, 0), 4);
        QCoreApplication::processEvents();
    };
    watcher.start(record);
    change(true);
    change(false);
    const std::vector<PathStatus> expected = {unsatisfied, satisfied, unsatisfied};
    EXPECT_EQ(seen, expected);
    watcher.cancel();
    change(true);
    watcher.start(record);
    EXPECT_EQ(seen, expected);
}

TEST(NetworkPaths, AMonitorIsToldByAnyWatcherWithoutWaitingForAChange) {
    DrainedQueue queue;
    NetworkMonitor blind(std::make_unique<NetworkLinkWatcher>(Descriptor(), [] { return false; }),
                         queue);
    blind.start();
    NetworkMonitor systems(makePathWatcher(), queue), cancelled(makePathWatcher(), queue);
    systems.start();
    cancelled.stop();
    cancelled.start();
    EXPECT_EQ(queue.drain(), 2u);
    EXPECT_TRUE(blind.isOnline().get()) << "an offline that nothing takes back";
    const Descriptor news = NetworkLinks::openNews();
    EXPECT_TRUE(!news || NetworkLinks::takeNews(news)) << "the kernel's own, and no waiting";
}

} // namespace
} // namespace veridane::ui
