#include "ui/SettingsView.h"

#include "platform/Language.h"
#include "ui/AboutSettingsView.h"
#include "ui/GeneralSettingsView.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/TabDrawing.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace veridane::ui {
namespace {

enum Tab { general, about };

} // namespace

SettingsView::SettingsView(Preferences& preferences, Workspace& workspace, Relauncher& relauncher,
                           const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_tabs(new QTabWidget) {
    setObjectName(QStringLiteral("SettingsView"));
    setFixedSize(theme.scaled(metrics::settingsWidth), theme.scaled(metrics::settingsHeight));
    m_tabs->setObjectName(QStringLiteral("settingsTabWidget"));
    m_tabs->setUsesScrollButtons(false);
    m_tabs->insertTab(general, new GeneralSettingsView(preferences, relauncher, theme), {});
    m_tabs->insertTab(about, new AboutSettingsView(workspace, theme), {});
    TabDrawing::setSymbol(*m_tabs->tabBar(), general, "gearshape");
    TabDrawing::setSymbol(*m_tabs->tabBar(), about, "info.circle");
    makeColumn(this)->addWidget(m_tabs);
    m_tabs->tabBar()->lower(); // so that assistive technology comes to it before the page
    m_tabs->setFocus();        // else the keys that change the tab would have nobody to go to
    retranslate();
}

void SettingsView::retranslate() {
    setWindowTitle(toQString(localized("Einstellungen")));
    m_tabs->setTabText(general, toQString(localized("Allgemein")));
    m_tabs->setTabText(about, toQString(localized("Über")));
}

} // namespace veridane::ui
