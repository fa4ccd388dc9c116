#pragma once

#include "coordination/NetworkMonitor.h"
#include "platform/Descriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace veridane::ui {

/// Watches the way to the network by asking for it whenever there is news of it. For the main
/// thread, where it also calls.
class NetworkLinkWatcher : public PathWatcher {
public:
    /// `news` is one of `NetworkLinks::openNews`. Where it is none, the machine counts as online:
    /// an "offline" that nothing takes back would hide things for good.
    NetworkLinkWatcher(Descriptor news, std::function<bool()> hasWayOut);

    /// The first call of `onPath` is within this one.
    void start(std::function<void(PathStatus)> onPath) override;
    void cancel() override;

private:
    void take();

    Descriptor m_news;
    std::function<bool()> m_hasWayOut;
    std::function<void(PathStatus)> m_onPath;
    std::unique_ptr<QSocketNotifier> m_notifier; // below the descriptor that it watches
    bool m_isCancelled = false;
};

} // namespace veridane::ui
