#include "coordination/NetworkMonitor.h"

#include <utility>

namespace veridane {

NetworkMonitor::NetworkMonitor(std::unique_ptr<PathWatcher> watcher, MainQueue& queue)
    : m_watcher(std::move(watcher)), m_queue(queue),
      m_self(std::make_shared<NetworkMonitor*>(this)) {}

NetworkMonitor::~NetworkMonitor() {
    m_watcher->cancel();
}

void NetworkMonitor::start() {
    if (m_started.get())
        return;
    m_started.set(true);
    m_watcher->start([weak = std::weak_ptr(m_self), &queue = m_queue](PathStatus status) {
        queue.post([weak, online = status == PathStatus::satisfied] {
            if (const auto self = weak.lock())
                (*self)->m_isOnline.set(online);
        });
    });
}

void NetworkMonitor::stop() {
    m_watcher->cancel();
    m_started.set(false);
}

} // namespace veridane
