#pragma once

#include "coordination/ScanCoordinator.h"
#include "coordination/VolumeQueries.h"
#include "scan/ExaminedVolume.h"
#include "ui/ApplicationLook.h"
#include "ui/ContentView.h"
#include "ui/DesktopWorkspace.h"
#include "ui/EventLoopQueue.h"
#include "ui/FileDialogSavePanel.h"
#include "ui/InterfaceLanguage.h"
#include "ui/LaunchArguments.h"
#include "ui/Preferences.h"
#include "ui/ProcessRelauncher.h"
#include "ui/SettingsView.h"
#include "ui/SystemAppearance.h"
#include "ui/Theme.h"

#include <memory>
#include <string>
#include <vector>

namespace veridane {
class HttpClient;
}

namespace veridane::ui {

/// The program but for its event loop: owns the one coordinator with all that it works with, and
/// the windows. Every member outlives those below it.
class VeridaneApp {
public:
    /// Needs the `QApplication`, before anybody has given it a look. `commandLine` is what the
    /// process was started with, before the toolkit took out its own.
    VeridaneApp(ExaminedVolume volume, const LaunchArguments& arguments,
                std::vector<std::string> commandLine);
    ~VeridaneApp();
    VeridaneApp(const VeridaneApp&) = delete;
    VeridaneApp& operator=(const VeridaneApp&) = delete;

    void showMainWindow() { m_window->show(); }

private:
    [[nodiscard]] CoordinatorServices services();
    [[nodiscard]] HttpClient& client();
    [[nodiscard]] std::unique_ptr<WelcomeView> makeWelcome();
    void follow();
    void showSettings();

    Preferences m_preferences;
    InterfaceLanguage m_language;
    SystemAppearance m_systemAppearance;
    Theme m_theme;
    ApplicationLook m_look;
    EventLoopQueue m_queue;
    ExaminedVolume m_volume;
    VolumeQueries m_queries;
    DesktopWorkspace m_workspace;
    FileDialogSavePanel m_savePanel;
    ProcessRelauncher m_relauncher;
    std::unique_ptr<HttpClient> m_client; // from the first transfer on
    ScanCoordinator m_coordinator;
    std::unique_ptr<ContentView> m_window;
    std::unique_ptr<SettingsView> m_settings;
    Subscription m_onAppearance;
    Subscription m_onLanguage;
};

} // namespace veridane::ui
