#include "ui/ApplicationLook.h"

#include "ui/FocusRing.h"
#include "ui/HelpTags.h"
#include "ui/Theme.h"
#include "ui/VeridaneStyle.h"

#include <QApplication>
#include <QToolTip>

namespace veridane::ui {

ApplicationLook::ApplicationLook(const Theme& theme) : m_style(new VeridaneStyle(theme)) {
    QApplication::setStyle(m_style);
    QApplication::setFont(theme.font(TextStyle::body));
    QToolTip::setFont(theme.font(TextStyle::callout));
    new FocusRing(theme, this);
    new HelpTags(this);
    apply();
    connect(&theme, &Theme::changed, this, &ApplicationLook::apply);
}

// Ours draws by a theme that may end next.
ApplicationLook::~ApplicationLook() {
    QApplication::setStyle(QStringLiteral("fusion"));
}

void ApplicationLook::apply() {
    const QPalette palette = m_style->themePalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    // Each with all that is in it, so that no widget has to listen for itself.
    for (QWidget* window : QApplication::topLevelWidgets())
        window->update();
}

} // namespace veridane::ui
