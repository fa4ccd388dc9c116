#include "ui/EventLoopQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace veridane::ui {
namespace {

void runUntil(const std::function<bool()>& isDone) {
    while (!isDone())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST(EventLoopQueue, RunsTheTasksOfAllThreadsInTheOrderOfEach) {
    constexpr int threads = 4, tasks = 500;
    EventLoopQueue queue;
    std::vector<std::vector<int>> seen(threads);
    int count = 0;
    {
        std::vector<std::jthread> posters;
        for (int thread = 0; thread < threads; ++thread) {
            posters.emplace_back([&, thread] {
                for (int task = 0; task < tasks; ++task) {
                    queue.post([&, thread, task] {
                        seen[static_cast<std::size_t>(thread)].push_back(task);
                        ++count;
                    });
                }
            });
        }
        EXPECT_EQ(count, 0) << "none within the call";
        runUntil([&] { return count == threads * tasks; });
    }
    for (const auto& order : seen)
        EXPECT_TRUE(std::ranges::is_sorted(order));
}

/// Is served by the loop between two turns, as the user's input is.
class Served : public QObject {
public:
    Served() { startTimer(0); }
    int turns = 0;

protected:
    void timerEvent(QTimerEvent*) override { ++turns; }
};

TEST(EventLoopQueue, ATaskThatPostsItselfForEverKeepsNobodyFromTheLoop) {
    constexpr int forEver = 1000;
    EventLoopQueue queue;
    Served served;
    int runs = 0;
    std::function<void()> task = [&] {
        if (++runs < forEver)
            queue.post(task);
    };
    queue.post(task);
    runUntil([&] { return served.turns == 3; });
    EXPECT_LT(runs, forEver);
}

TEST(EventLoopQueue, ATaskThatWaitsInALoopOfItsOwnLetsTheOthersRun) {
    EventLoopQueue queue;
    std::vector<int> order;
    queue.post([&] {
        order.push_back(1);
        queue.post([&] { order.push_back(3); });
        runUntil([&] { return order.size() == 3; });
        order.push_back(4);
    });
    queue.post([&] { order.push_back(2); });
    runUntil([&] { return order.size() == 4; });
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4}));
}

TEST(EventLoopQueue, WhatNoLoopRunsAnyMoreIsDroppedWithTheQueue) {
    const auto kept = std::make_shared<int>();
    auto queue = std::make_unique<EventLoopQueue>();
    queue->post([kept] { FAIL() << "has run"; });
    std::jthread([&] { queue->post([kept] { FAIL() << "has run"; }); }).join();
    queue.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(kept.use_count(), 1);
}

} // namespace
} // namespace veridane::ui
