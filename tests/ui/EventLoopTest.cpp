#include "platform/DrainedQueue.h"
#include "platform/NetworkLinks.h"
#include "ui/EventLoopQueue.h"
#include "ui/NetworkLinkWatcher.h"
#include "ui/NetworkPaths.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <algorithm>
#include <thread>
#include <vector>

namespace veridane::ui {
namespace {

using enum PathStatus;

void runUntil(const std::function<bool()>& isDone) {
    while (!isDone())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST(EventLoopQueue, RunsWhatAllThreadsPostInTheOrderOfEach) {
    constexpr int tasks = 500;
    EventLoopQueue queue;
    std::vector<int> first, second;
    {
        const auto fill = [&](std::vector<int>& seen) {
            for (int task = 0; task < tasks; ++task)
                queue.post([&seen, task] { seen.push_back(task); });
        };
        const std::jthread other([&] { fill(second); });
        fill(first);
        EXPECT_TRUE(first.empty()) << "none within the call";
        runUntil([&] { return first.size() + second.size() == 2 * tasks; });
    }
    EXPECT_TRUE(std::ranges::is_sorted(first));
    EXPECT_TRUE(std::ranges::is_sorted(second));
}

TEST(EventLoopQueue, NeitherATaskThatPostsItselfNorOneThatWaitsHoldsUpOthers) {
    constexpr int forEver = 1000;
    EventLoopQueue queue;
    int turns = 0, runs = 0;
    QTimer timer; // is served by the loop between two turns, as the user's input is
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++turns; });
    timer.start(0);
    const std::function<void()> again = [&] {
        if (++runs < forEver)
            queue.post(again);
    };
    queue.post(again);
    runUntil([&] { return turns == 3; });
    EXPECT_LT(runs, forEver);

    bool hasRun = false;
    queue.post([&] { runUntil([&] { return hasRun; }); }); // as in a dialog
    queue.post([&] { hasRun = true; });
    runUntil([&] { return hasRun; });
}

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
