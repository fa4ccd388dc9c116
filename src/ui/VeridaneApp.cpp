#include "ui/VeridaneApp.h"

#include "coordination/DataDirectory.h"
#include "platform/CurlHttpClient.h"
#include "platform/Version.h"
#include "scan/SystemScanner.h"
#include "ui/NetworkPaths.h"
#include "ui/WelcomeView.h"
#include "updates/StoreLookup.h"
#include "updates/UpdateChecker.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QIcon>

#include <utility>

namespace veridane::ui {
namespace {

void nameApplication() {
    QCoreApplication::setApplicationName(QStringLiteral("Veridane"));
    QCoreApplication::setOrganizationName(QStringLiteral("Mirefold"));
    QCoreApplication::setApplicationVersion(QString::fromLatin1(productVersion));
    QGuiApplication::setDesktopFileName(QStringLiteral("com.mirefold.Veridane"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/brand/veridane-icon.svg")));
}

} // namespace

VeridaneApp::VeridaneApp(ExaminedVolume volume, const LaunchArguments& arguments,
                         std::vector<std::string> commandLine)
    : m_systemAppearance(platformLook(), QDBusConnection::sessionBus()),
      m_theme(m_systemAppearance.look()), m_look(m_theme), m_volume(std::move(volume)),
      m_queries(*m_volume.files), m_workspace(arguments.volume.value_or("/")),
      m_relauncher(relaunchCommand(std::move(commandLine))),
      m_coordinator(services(), std::make_unique<ScanCacheStore>(dataDirectory(arguments.volume)),
                    dataDirectory(arguments.volume)) {
    nameApplication();
    m_preferences.applyLanguage(m_preferences.appLanguage());
    follow();
    m_window = std::make_unique<ContentView>(ContentServices{.coordinator = m_coordinator,
                                                             .workspace = m_workspace,
                                                             .preferences = m_preferences,
                                                             .savePanel = m_savePanel,
                                                             .theme = m_theme,
                                                             .makeWelcome =
                                                                 [this] {
                                                                     return makeWelcome();
                                                                 }},
                                             arguments.seeds);
    m_savePanel.setWindow(m_window.get());
    QObject::connect(m_window.get(), &ContentView::settingsRequested, m_window.get(),
                     [this] { showSettings(); });
}

VeridaneApp::~VeridaneApp() = default;

CoordinatorServices VeridaneApp::services() {
    return {
        .mainQueue = m_queue,
        .workspace = m_workspace,
        .system = m_queries,
        .scan =
            [this](const auto& options, const auto& onProgress, const auto& stop) {
                return SystemScanner::scan(m_volume.files->stoppingAt(stop), m_volume.locations,
                                           options, onProgress, stop);
            },
        .checkUpdate =
            [this](const ScanItem& item, auto onResult) {
                UpdateChecker::check(item, {client(), storeLookupService()}, std::move(onResult));
            },
    };
}

std::unique_ptr<WelcomeView> VeridaneApp::makeWelcome() {
    return std::make_unique<WelcomeView>(
        WelcomeServices{client(), m_queue, m_workspace, makePathWatcher()}, m_theme);
}

/// Made when it is needed: not before the window is there.
HttpClient& VeridaneApp::client() {
    if (!m_client)
        m_client = std::make_unique<CurlHttpClient>(HttpSettings::ofEnvironment());
    return *m_client;
}

/// Applies language and appearance, now and whenever the user or the desktop changes them.
void VeridaneApp::follow() {
    const auto applyLanguage = [this] {
        m_language.apply(m_preferences.appLanguage());
    };
    const auto applyMode = [this] {
        m_theme.setMode(m_preferences.appearanceMode());
    };
    applyLanguage();
    applyMode();
    m_onLanguage = m_preferences.languageRaw().observe(applyLanguage);
    m_onAppearance = m_preferences.appearanceRaw().observe(applyMode);
    QObject::connect(&m_systemAppearance, &SystemAppearance::changed, &m_theme,
                     [this] { m_theme.setSystemLook(m_systemAppearance.look()); });
}

void VeridaneApp::showSettings() {
    // A new one each time: what it says of a restart is forgotten with the old one.
    if (!m_settings || !m_settings->isVisible()) {
        m_settings =
            std::make_unique<SettingsView>(m_preferences, m_workspace, m_relauncher, m_theme);
        m_settings->setAttribute(Qt::WA_QuitOnClose, false); // the main window alone keeps us here
    }
    m_settings->showNormal();
    m_settings->raise();
    m_settings->activateWindow();
}

} // namespace veridane::ui
