#include "platform/TaskList.h"

#include <utility>

namespace veridane {
namespace {

TaskList::Task removedFirst(std::deque<TaskList::Task>& tasks) {
    TaskList::Task task = std::move(tasks.front());
    tasks.pop_front();
    return task;
}

} // namespace

void TaskList::add(Task task) {
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_added.notify_one();
}

std::size_t TaskList::size() const {
    const std::lock_guard lock(m_mutex);
    return m_tasks.size();
}

TaskList::Task TaskList::takeFirst() {
    const std::lock_guard lock(m_mutex);
    return m_tasks.empty() ? Task() : removedFirst(m_tasks);
}

TaskList::Task TaskList::awaitFirst() {
    std::unique_lock lock(m_mutex);
    m_added.wait(lock, [this] { return !m_tasks.empty(); });
    return removedFirst(m_tasks);
}

} // namespace veridane
