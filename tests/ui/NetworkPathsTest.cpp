#include "ui/NetworkPaths.h"

#include "platform/DrainedQueue.h"
#include "ui/LinkWatcher.h"

#include <QCoreApplication>

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <utility>
#include <vector>

namespace veridane::ui {
namespace {

using enum PathStatus;
using Statuses = std::vector<PathStatus>;

/// A watcher whose news and answers are the test's.
class LinkWatcherTest : public ::testing::Test {
protected:
    LinkWatcherTest() {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, ends), 0);
        m_reader = Descriptor(ends[0]);
        m_writer = Descriptor(ends[1]);
    }
    std::unique_ptr<LinkWatcher> watcher() {
        return std::make_unique<LinkWatcher>(std::move(m_reader), [this] { return hasWayOut; });
    }
    void setWayOut(bool is) {
        hasWayOut = is;
        EXPECT_EQ(::send(m_writer.get(), "!!", 2, 0), 2);
        QCoreApplication::processEvents();
    }
    bool hasWayOut = false;

private:
    Descriptor m_reader;
    Descriptor m_writer;
};

TEST_F(LinkWatcherTest, TellsThePresentStateThenChangesUntilItIsCancelled) {
    Statuses seen;
    const auto watched = watcher();
    const auto record = [&](PathStatus status) {
        seen.push_back(status);
    };
    watched->start(record);
    EXPECT_EQ(seen, (Statuses{unsatisfied}));
    setWayOut(true);
    setWayOut(false);
    EXPECT_EQ(seen, (Statuses{unsatisfied, satisfied, unsatisfied}));
    watched->cancel();
    setWayOut(true);
    watched->start(record);
    EXPECT_EQ(seen.size(), 3u);
}

TEST_F(LinkWatcherTest, WithoutNewsTheMachineCountsAsOnline) {
    Statuses seen;
    LinkWatcher(Descriptor(), [] { return false; }).start([&](PathStatus status) {
        seen.push_back(status);
    });
    EXPECT_EQ(seen, (Statuses{satisfied}));
}

TEST_F(LinkWatcherTest, AMonitorFollowsIt) {
    DrainedQueue queue;
    NetworkMonitor monitor(watcher(), queue);
    monitor.start();
    for (const bool isOnline : {true, false, true}) {
        setWayOut(isOnline);
        queue.drain();
        EXPECT_EQ(monitor.isOnline().get(), isOnline);
    }
}

TEST(NetworkPaths, TheSystemsWatcherSpeaksAtOnceAndNotOnceCancelled) {
    for (const bool isCancelledBefore : {false, true}) {
        int calls = 0;
        const auto watcher = makePathWatcher();
        if (isCancelledBefore)
            watcher->cancel();
        watcher->start([&](PathStatus) { ++calls; });
        EXPECT_EQ(calls, isCancelledBefore ? 0 : 1);
    }
}

TEST(NetworkPaths, TheToolkitsWordCountsUnlessItKnowsNothing) {
    using enum QNetworkInformation::Reachability;
    for (const bool hasWayOut : {false, true}) {
        for (const auto online : {Online, Site})
            EXPECT_EQ(pathStatus(online, hasWayOut), satisfied);
        for (const auto offline : {Disconnected, Local})
            EXPECT_EQ(pathStatus(offline, hasWayOut), unsatisfied);
        EXPECT_EQ(pathStatus(Unknown, hasWayOut), hasWayOut ? satisfied : unsatisfied);
    }
}

} // namespace
} // namespace veridane::ui
