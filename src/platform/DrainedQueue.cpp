#include "platform/DrainedQueue.h"

#include <utility>

namespace veridane {

void DrainedQueue::post(std::function<void()> task) {
    m_tasks.add(std::move(task));
}

std::size_t DrainedQueue::drain() {
    std::size_t count = 0;
    for (; const auto task = m_tasks.takeFirst(); ++count)
        task();
    return count;
}

void DrainedQueue::drainUntil(const std::function<bool()>& isDone) {
    while (!isDone())
        m_tasks.awaitFirst()();
}

} // namespace veridane
