#include "platform/SerialWorker.h"

#include <utility>

namespace veridane {

SerialWorker::SerialWorker() : m_thread([this] { run(); }) {}

SerialWorker::~SerialWorker() {
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void SerialWorker::post(std::function<void()> task) {
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_changed.notify_one();
}

void SerialWorker::run() {
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_isEnding || !m_tasks.empty(); });
        if (m_tasks.empty())
            return;
        std::function<void()> task = std::move(m_tasks.front());
        m_tasks.pop_front();
        lock.unlock();
        task();
        task = nullptr; // before the lock: what it holds may post when it goes, or take its time
        lock.lock();
    }
}

} // namespace veridane
