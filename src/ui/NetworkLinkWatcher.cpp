#include "ui/NetworkLinkWatcher.h"

#include "platform/NetworkLinks.h"

#include <utility>

namespace veridane::ui {

NetworkLinkWatcher::NetworkLinkWatcher(Descriptor news, std::function<bool()> hasWayOut)
    : m_news(std::move(news)), m_hasWayOut(std::move(hasWayOut)) {}

void NetworkLinkWatcher::start(std::function<void(PathStatus)> onPath) {
    if (m_isCancelled)
        return;
    m_onPath = std::move(onPath);
    if (!m_news)
        return m_onPath(PathStatus::satisfied);
    m_notifier = std::make_unique<QSocketNotifier>(m_news.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { take(); });
    m_onPath(m_hasWayOut() ? PathStatus::satisfied : PathStatus::unsatisfied);
}

void NetworkLinkWatcher::cancel() {
    m_isCancelled = true;
    if (m_notifier)
        m_notifier->setEnabled(false); // not deleted: it may be calling us
}

void NetworkLinkWatcher::take() {
    const bool goesOn = NetworkLinks::takeNews(m_news);
    m_notifier->setEnabled(goesOn);
    m_onPath(!goesOn || m_hasWayOut() ? PathStatus::satisfied : PathStatus::unsatisfied);
}

} // namespace veridane::ui
