#pragma once

#include "platform/MainQueue.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>

namespace veridane {

/// A main queue without an event loop: whoever owns it runs its tasks by hand, on one thread.
class DrainedQueue : public MainQueue {
public:
    void post(std::function<void()> task) override;

    /// Runs what is waiting now, and what that posts; gives the number of tasks.
    std::size_t drain();

    /// Runs tasks until `isDone`, which is asked before each of them, and sleeps while there is
    /// nothing to run. For ever, if nobody posts what is waited for.
    void drainUntil(const std::function<bool()>& isDone);

private:
    [[nodiscard]] std::function<void()> takeFirst();

    std::mutex m_mutex;
    std::condition_variable m_posted;
    std::deque<std::function<void()>> m_tasks;
};

} // namespace veridane
