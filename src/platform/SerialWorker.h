#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace veridane {

/// A thread of its own that does one task after the other, in the order of posting. Its destructor
/// waits until all of them are done.
class SerialWorker {
public:
    SerialWorker();
    ~SerialWorker();
    SerialWorker(const SerialWorker&) = delete;
    SerialWorker& operator=(const SerialWorker&) = delete;

    /// Returns at once. Safe on any thread, the worker's own among them.
    void post(std::function<void()> task);

private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_tasks;
    bool m_isEnding = false;
    std::thread m_thread; // last: it uses everything above
};

} // namespace veridane
