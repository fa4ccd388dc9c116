#include "ui/SystemAppearance.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QFontInfo>
#include <QGuiApplication>
#include <QMap>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

#include <memory>

namespace veridane::ui {
namespace {

constexpr QLatin1String portalService("org.freedesktop.portal.Desktop");
constexpr QLatin1String portalPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String portalInterface("org.freedesktop.portal.Settings");
constexpr QLatin1String appearanceGroup("org.freedesktop.appearance");

// The sizes of the theme are made for a general font of the first size. Up to the second one the
// user's is larger only by the taste of the desktop.
constexpr double usualFontSize = 13;
constexpr int largestUsualFontSize = 15;

constexpr double highContrastRatio = 18; // between text and window of a palette made for it

// Portals differ in how often they wrap a value.
QVariant unwrapped(QVariant value) {
    constexpr int mostLayers = 4;
    for (int layer = 0; layer < mostLayers && value.userType() == qMetaTypeId<QDBusVariant>();
         ++layer)
        value = qvariant_cast<QDBusVariant>(value).variant();
    return value;
}

} // namespace

void PortalSettings::take(const QString& key, const QVariant& value) {
    const QVariant inner = unwrapped(value);
    if (inner.userType() != QMetaType::UInt)
        return;
    const unsigned number = inner.toUInt();
    if (key == QLatin1String("color-scheme")) // 0 leaves it to us
        isDark = number == 1 || number == 2 ? std::optional(number == 1) : std::nullopt;
    else if (key == QLatin1String("contrast"))
        wantsHighContrast = number == 1 ? std::optional(true) : std::nullopt;
}

SystemLook lookOf(const QPalette& platform, const QPalette& standard, int fontSize) {
    const auto colour = [](const QPalette& palette, QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role);
    };
    const QColor text = colour(platform, QPalette::WindowText);
    const QColor window = colour(platform, QPalette::Window);
    const QColor highlight = colour(platform, QPalette::Highlight);
    SystemLook look;
    look.isDark = text.lightness() > window.lightness();
    // The standard palette itself is as harsh, and nobody has asked for that one.
    const bool isStandard = text == colour(standard, QPalette::WindowText) &&
                            window == colour(standard, QPalette::Window);
    look.wantsHighContrast = !isStandard && contrastRatio(text, window) > highContrastRatio;
    if (highlight != colour(standard, QPalette::Highlight))
        look.accent = highlight;
    if (fontSize > largestUsualFontSize)
        look.textScale = fontSize / usualFontSize;
    return look;
}

SystemLook platformLook() {
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("fusion")));
    return lookOf(QGuiApplication::palette(), fusion ? fusion->standardPalette() : QPalette(),
                  QFontInfo(QGuiApplication::font()).pixelSize());
}

SystemAppearance::SystemAppearance(const SystemLook& platform, const QDBusConnection& bus,
                                   QObject* parent)
    : QObject(parent), m_platform(platform) {
    if (!bus.isConnected())
        return;
    qRegisterMetaType<QDBusVariant>(); // else the first connection to such a slot fails
    QDBusConnection(bus).connect(portalService, portalPath, portalInterface,
                                 QStringLiteral("SettingChanged"), this,
                                 SLOT(takeSetting(QString, QString, QDBusVariant)));
    auto call = QDBusMessage::createMethodCall(portalService, portalPath, portalInterface,
                                               QStringLiteral("ReadAll"));
    call << QStringList{appearanceGroup};
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusMessage reply = answer->reply();
        if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"a{sa{sv}}")
            return;
        const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(reply.arguments().constFirst());
        takeAll(groups.value(appearanceGroup));
    });
}

SystemLook SystemAppearance::look() const {
    SystemLook look = m_platform;
    look.isDark = m_portal.isDark.value_or(look.isDark);
    look.wantsHighContrast = m_portal.wantsHighContrast.value_or(look.wantsHighContrast);
    return look;
}

void SystemAppearance::takeAll(const QVariantMap& settings) {
    const PortalSettings before = m_portal;
    for (const auto& [key, value] : settings.asKeyValueRange())
        m_portal.take(key, value);
    if (m_portal != before)
        Q_EMIT changed();
}

void SystemAppearance::takeSetting(const QString& group, const QString& key,
                                   const QDBusVariant& value) {
    if (group == appearanceGroup)
        takeAll({{key, value.variant()}});
}

} // namespace veridane::ui
