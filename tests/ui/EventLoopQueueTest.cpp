#include "ui/EventLoopQueue.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <thread>
#include <vector>

namespace veridane::ui {
namespace {

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

/// Is served by the loop between two turns, as the user's input is.
class Served : public QObject {
public:
    Served() { startTimer(0); }
    int turns = 0;

protected:
    void timerEvent(QTimerEvent*) override { ++turns; }
};

TEST(EventLoopQueue, NeitherATaskThatPostsItselfNorOneThatWaitsHoldsUpOthers) {
    constexpr int forEver = 1000;
    EventLoopQueue queue;
    Served served;
    int runs = 0;
    const std::function<void()> again = [&] {
        if (++runs < forEver)
            queue.post(again);
    };
    queue.post(again);
    runUntil([&] { return served.turns == 3; });
    EXPECT_LT(runs, forEver);

    bool hasRun = false;
    queue.post([&] { runUntil([&] { return hasRun; }); }); // as in a dialog
    queue.post([&] { hasRun = true; });
    runUntil([&] { return hasRun; });
}

} // namespace
} // namespace veridane::ui
