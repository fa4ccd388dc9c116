#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

namespace veridane {

/// Tasks in the order in which they came, from any thread to one that takes them out.
class TaskList {
public:
    using Task = std::function<void()>;

    void add(Task task);

    [[nodiscard]] std::size_t size() const;

    /// An empty function if there is none.
    [[nodiscard]] Task takeFirst();

    /// Sleeps until there is one.
    [[nodiscard]] Task awaitFirst();

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_added;
    std::deque<Task> m_tasks;
};

} // namespace veridane
