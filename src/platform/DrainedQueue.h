#pragma once

#include "platform/MainQueue.h"
#include "platform/TaskList.h"

#include <cstddef>
#include <functional>

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
    TaskList m_tasks;
};

} // namespace veridane
