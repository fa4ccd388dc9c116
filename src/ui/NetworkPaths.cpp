#include "ui/NetworkPaths.h"

#include "platform/MessageBus.h"
#include "platform/NetworkLinks.h"
#include "ui/NetworkLinkWatcher.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QNetworkInformation>
#include <QObject>

#include <functional>
#include <utility>

namespace veridane::ui {
namespace {

/// What the toolkit's word for it means.
PathStatus pathStatus(QNetworkInformation::Reachability reachability, bool hasWayOut) {
    switch (reachability) {
    case QNetworkInformation::Reachability::Online:
    case QNetworkInformation::Reachability::Site:
        return PathStatus::satisfied;
    case QNetworkInformation::Reachability::Disconnected:
    case QNetworkInformation::Reachability::Local:
        return PathStatus::unsatisfied;
    case QNetworkInformation::Reachability::Unknown:
        // NetworkManager's state while it connects, and when the user has switched it off.
        break;
    }
    return hasWayOut ? PathStatus::satisfied : PathStatus::unsatisfied;
}

/// Follows the toolkit's one object, which lives as long as the application.
class ToolkitWatcher : public PathWatcher {
public:
    explicit ToolkitWatcher(QNetworkInformation& network) : m_network(network) {}

    void start(std::function<void(PathStatus)> onPath) override {
        if (m_isCancelled)
            return;
        const auto tell = [onPath = std::move(onPath)](QNetworkInformation::Reachability now) {
            onPath(pathStatus(now, NetworkLinks::hasWayOut()));
        };
        m_connection =
            QObject::connect(&m_network, &QNetworkInformation::reachabilityChanged, &m_user, tell);
        tell(m_network.reachability());
    }

    void cancel() override {
        m_isCancelled = true;
        QObject::disconnect(m_connection);
    }

private:
    QNetworkInformation& m_network;
    QMetaObject::Connection m_connection;
    QObject m_user; // whose end is that of the connection
    bool m_isCancelled = false;
};

/// Whether the toolkit can ask the system's service without waiting for an answer that never comes:
/// it would wait for 25 seconds, and for a bus without end, and the window with it.
bool isServiceAnswering() {
#ifdef Q_OS_LINUX
    if (MessageBus::isSilent(MessageBus::systemAddress()))
        return false;
    constexpr int patience = 500; // milliseconds; a service that runs takes one
    auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.NetworkManager"),
        QStringLiteral("/org/freedesktop/NetworkManager"),
        QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
    question.setAutoStartService(false);
    const QDBusMessage answer = QDBusConnection::systemBus().call(question, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage;
#else
    return true;
#endif
}

/// The system's own one, which is NetworkManager on Linux, and no other that merely has the
/// feature: GLib's is silent in an event loop that is not GLib's. Null where that does not run.
QNetworkInformation* toolkitsNetwork() {
    if (!isServiceAnswering())
        return nullptr;
    QNetworkInformation::loadDefaultBackend();
    QNetworkInformation* const network = QNetworkInformation::instance();
    return network && network->supports(QNetworkInformation::Feature::Reachability) ? network
                                                                                    : nullptr;
}

} // namespace

std::unique_ptr<PathWatcher> makePathWatcher() {
    if (QNetworkInformation* const network = toolkitsNetwork())
        return std::make_unique<ToolkitWatcher>(*network);
    return std::make_unique<NetworkLinkWatcher>(NetworkLinks::openNews(), &NetworkLinks::hasWayOut);
}

} // namespace veridane::ui
