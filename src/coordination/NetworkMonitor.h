#pragma once

#include "platform/MainQueue.h"
#include "platform/Observed.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace veridane {

/// What the system says of the way to the network.
enum class PathStatus : std::uint8_t { satisfied, unsatisfied, requiresConnection };

/// The system's watcher of the way to the network.
class PathWatcher {
public:
    virtual ~PathWatcher() = default;

    /// From now on `onPath` is called with each status, the present one first, on any thread.
    virtual void start(std::function<void(PathStatus)> onPath) = 0;

    /// Ends the calls for good: a cancelled watcher does not start again.
    virtual void cancel() = 0;
};

/// Whether the machine is online, as far as the system tells. For the main thread.
class NetworkMonitor {
public:
    /// `queue` must outlive the watcher's last call.
    NetworkMonitor(std::unique_ptr<PathWatcher> watcher, MainQueue& queue);
    ~NetworkMonitor();
    NetworkMonitor(const NetworkMonitor&) = delete;
    NetworkMonitor& operator=(const NetworkMonitor&) = delete;

    /// Does nothing while started.
    void start();

    /// `isOnline` keeps its last value. A later `start` brings no new ones.
    void stop();

    /// False until the first status has come.
    [[nodiscard]] const Observed<bool>& isOnline() const { return m_isOnline; }
    [[nodiscard]] const Observed<bool>& started() const { return m_started; }

private:
    std::unique_ptr<PathWatcher> m_watcher;
    MainQueue& m_queue;
    Observed<bool> m_isOnline;
    Observed<bool> m_started;
    std::shared_ptr<NetworkMonitor*> m_self; // gone with the monitor, seen by tasks on their way
};

} // namespace veridane
