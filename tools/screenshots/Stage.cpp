#include "Stage.h"

#include "ui/RosettaInstallGuide.h"
#include "ui/SettingsView.h"
#include "ui/Sheet.h"
#include "ui/Text.h"
#include "ui/WelcomeView.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>

#include <cstdio>
#include <memory>

namespace veridane::screenshots {
namespace {

using namespace veridane::ui;

/// Lays the window out without showing it. The main window's start task stays in the queue.
void prepare(QWidget& window) {
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    for (int round = 0; round < 4; ++round) // layouts ask for others
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

void scroll(QWidget& view, Scrolled scrolled) {
    QScrollBar& bar = *view.findChild<QScrollArea*>()->verticalScrollBar();
    bar.setValue(scrolled == Scrolled::toEnd ? bar.maximum() : 0);
}

void grab(QWidget& window, const QString& file) {
    prepare(window);
    if (!window.grab().save(file))
        std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
}

} // namespace

Stage::Stage(AppearanceMode mode, AppLanguage language, bool hasAccess)
    : m_mac(hasAccess), m_look(m_theme),
      m_preferences(toQString(m_data.hostPath("/Veridane.conf"))) {
    m_theme.setMode(mode);
    m_preferences.setAppLanguage(language);
    if (mode == AppearanceMode::dark) // else what a start without settings gives
        m_preferences.setAppearanceMode(mode);
    m_language.apply(language);
    QCoreApplication::processEvents();
}

ContentServices Stage::services() {
    return {.coordinator = coordinator(),
            .workspace = m_mac.workspace(),
            .preferences = m_preferences,
            .savePanel = m_savePanel,
            .theme = m_theme};
}

void Stage::save(const QString& file, QSize size) {
    ContentView window(services(), {});
    window.resize(size);
    grab(window, file);
}

void Stage::saveWelcome(const QString& file, PathStatus path, Scrolled scrolled) {
    ContentView window(services(), {});
    window.resize(metrics::windowWidth, metrics::windowHeight);
    auto* welcome = new WelcomeView({.client = m_network,
                                     .queue = m_mac.queue(),
                                     .workspace = m_mac.workspace(),
                                     .watcher = std::make_unique<test::SteadyPath>(path)},
                                    m_theme);
    const Sheet sheet(m_theme, welcome, window);
    prepare(window);
    m_mac.queue().drain(); // the list has come
    QCoreApplication::sendPostedEvents();
    prepare(window);
    scroll(*welcome, scrolled);
    grab(window, file);
}

void Stage::saveGuide(const QString& file) {
    ContentView window(services(), {});
    window.resize(metrics::windowWidth, metrics::windowHeight);
    const Sheet sheet(m_theme, new RosettaInstallGuide(m_mac.workspace(), m_theme), window);
    grab(window, file);
}

void Stage::saveSettings(const QString& file, SettingsTab tab, Scrolled scrolled) {
    SettingsView window(m_preferences, m_mac.workspace(), m_relauncher, m_theme);
    auto& tabs = *window.findChild<QTabWidget*>();
    tabs.setCurrentIndex(static_cast<int>(tab));
    prepare(window);
    if (tab == SettingsTab::about)
        scroll(*tabs.currentWidget(), scrolled);
    grab(window, file);
}

void Stage::saveSettingsWithHint(const QString& file) {
    SettingsView window(m_preferences, m_mac.workspace(), m_relauncher, m_theme);
    const AppLanguage language = m_preferences.appLanguage();
    m_preferences.setAppLanguage(AppLanguage::system);
    Q_EMIT window.findChild<QComboBox*>()->activated(static_cast<int>(language));
    QCoreApplication::sendPostedEvents();
    grab(window, file);
}

} // namespace veridane::screenshots
