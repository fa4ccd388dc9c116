#include "platform/DrainedQueue.h"

#include <utility>

namespace veridane {

void DrainedQueue::post(std::function<void()> task) {
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_posted.notify_one();
}

std::size_t DrainedQueue::drain() {
    std::size_t count = 0;
    for (; const auto task = takeFirst(); ++count)
        task();
    return count;
}

void DrainedQueue::drainUntil(const std::function<bool()>& isDone) {
    while (!isDone()) {
        {
            std::unique_lock lock(m_mutex);
            m_posted.wait(lock, [this] { return !m_tasks.empty(); });
        }
        takeFirst()();
    }
}

std::function<void()> DrainedQueue::takeFirst() {
    const std::lock_guard lock(m_mutex);
    if (m_tasks.empty())
        return {};
    std::function<void()> task = std::move(m_tasks.front());
    m_tasks.pop_front();
    return task;
}

} // namespace veridane
