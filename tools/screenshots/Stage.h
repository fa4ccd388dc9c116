#pragma once

#include "SampleMac.h"
#include "ui/ApplicationLook.h"
#include "ui/ContentView.h"
#include "ui/InterfaceLanguage.h"
#include "ui/Metrics.h"
#include "ui/Preferences.h"
#include "ui/QuietServices.h"
#include "ui/Theme.h"

#include <QSize>
#include <QString>

#include <cstdint>

namespace veridane::screenshots {

enum class SettingsTab : std::uint8_t { general, about };
enum class Scrolled : std::uint8_t { toStart, toEnd };

/// The program's windows before a camera. Each `save` writes one picture, and tells on standard
/// error where it cannot.
class Stage {
public:
    Stage(ui::AppearanceMode mode, ui::AppLanguage language, bool hasAccess);

    [[nodiscard]] SampleMac& mac() { return m_mac; }
    [[nodiscard]] ScanCoordinator& coordinator() { return m_mac.coordinator(); }

    void save(const QString& file,
              QSize size = {ui::metrics::windowWidth, ui::metrics::windowHeight});
    /// The same with a sheet before it.
    void saveWelcome(const QString& file, PathStatus path, Scrolled scrolled = Scrolled::toStart);
    void saveGuide(const QString& file);
    void saveSettings(const QString& file, SettingsTab tab, Scrolled scrolled = Scrolled::toStart);
    /// After the choice of the language.
    void saveSettingsWithHint(const QString& file);

private:
    [[nodiscard]] ui::ContentServices services();

    SampleMac m_mac;
    test::VolumeBuilder m_data; // a folder that goes with the stage
    ui::Theme m_theme;
    ui::ApplicationLook m_look;
    ui::InterfaceLanguage m_language;
    ui::Preferences m_preferences;
    test::QuietSavePanel m_savePanel;
    test::QuietRelauncher m_relauncher;
    test::UnreachableNetwork m_network;
};

} // namespace veridane::screenshots
