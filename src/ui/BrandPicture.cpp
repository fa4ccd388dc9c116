#include "ui/BrandPicture.h"

#include "ui/Theme.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QSvgRenderer>

namespace veridane::ui {

namespace {

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    Q_UNUSED(className);
    auto* picture = qobject_cast<BrandPicture*>(object);
    return picture && !picture->accessibleName().isEmpty()
               ? new QAccessibleWidget(picture, QAccessible::Graphic)
               : nullptr;
}

} // namespace

BrandPicture* BrandPicture::applicationIcon(const Theme& theme, int size) {
    const auto icon = QStringLiteral(":/brand/veridane-icon.svg");
    return new BrandPicture(theme, icon, icon, size);
}

BrandPicture* BrandPicture::makerLogo(const Theme& theme, int height) {
    static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    Q_UNUSED(isInstalled);
    auto* logo = new BrandPicture(theme, QStringLiteral(":/brand/MirefoldLogo.svg"),
                                  QStringLiteral(":/brand/MirefoldLogo-dark.svg"), height);
    logo->setAccessibleName(QStringLiteral("Mirefold"));
    return logo;
}

BrandPicture::BrandPicture(const Theme& theme, const QString& light, const QString& dark,
                           int height)
    : m_theme(theme), m_light(light), m_dark(dark) {
    setFixedSize(
        QSvgRenderer(light).defaultSize().scaled(QWIDGETSIZE_MAX, height, Qt::KeepAspectRatio));
}

// At each painting and not once: the window may move to a screen with another scale factor.
void BrandPicture::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    (m_theme.isDark() ? m_dark : m_light).paint(&painter, rect());
}

} // namespace veridane::ui
