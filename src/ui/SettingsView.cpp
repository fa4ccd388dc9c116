#include "ui/SettingsView.h"

#include "platform/Language.h"
#include "ui/GeneralSettingsView.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QEvent>
#include <QVBoxLayout>

namespace veridane::ui {

SettingsView::SettingsView(Preferences& preferences, const Theme& theme, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("SettingsView"));
    setFixedSize(theme.scaled(metrics::settingsWidth), theme.scaled(metrics::settingsHeight));
    makeColumn(this)->addWidget(new GeneralSettingsView(preferences, theme));
    retranslate();
}

void SettingsView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void SettingsView::retranslate() {
    setWindowTitle(toQString(localized("Einstellungen")));
}

} // namespace veridane::ui
