#pragma once

#include "ui/Theme.h"

#include <QObject>
#include <QVariantMap>

#include <optional>

class QDBusConnection;
class QDBusVariant;
class QPalette;

namespace veridane::ui {

/// What the desktop's portal says of its looks, as far as it says anything.
struct PortalSettings {
    std::optional<bool> isDark;
    std::optional<bool> wantsHighContrast;

    bool operator==(const PortalSettings&) const = default;

    /// Takes one setting of the portal's group "org.freedesktop.appearance". Anything but the
    /// values that the desktops have agreed on says nothing.
    void take(const QString& key, const QVariant& value);
};

/// What follows from the platform's own palette, the standard one of the style that knows no
/// desktop, and the general font's size in logical pixels.
[[nodiscard]] SystemLook lookOf(const QPalette& platform, const QPalette& standard, int fontSize);

/// The same for this process; to be asked before it has given itself a style, palette or font.
[[nodiscard]] SystemLook platformLook();

/// Follows the desktop's choice of light and dark and of contrast. Where no portal tells, the
/// platform's own look stays.
class SystemAppearance : public QObject {
    Q_OBJECT

public:
    /// Asks the portal on the bus, which may be one that is not connected, without waiting for it.
    SystemAppearance(const SystemLook& platform, const QDBusConnection& bus,
                     QObject* parent = nullptr);

    [[nodiscard]] SystemLook look() const;

Q_SIGNALS:
    void changed();

private:
    // For the bus, which knows functions by their names.
    Q_SLOT void takeSetting(const QString& group, const QString& key, const QDBusVariant& value);
    void takeAll(const QVariantMap& settings);

    SystemLook m_platform;
    PortalSettings m_portal;
};

} // namespace veridane::ui
