#pragma once

#include "ui/Retranslated.h"

#include <QDialog>

class QTabWidget;

namespace veridane {
class Workspace;
}

namespace veridane::ui {

class Preferences;
class Relauncher;
class Theme;

/// The settings window.
class SettingsView : public Retranslated<QDialog> {
    Q_OBJECT

public:
    /// All must outlive the window.
    SettingsView(Preferences& preferences, Workspace& workspace, Relauncher& relauncher,
                 const Theme& theme, QWidget* parent = nullptr);

private:
    void retranslate() final;

    QTabWidget* m_tabs;
};

} // namespace veridane::ui
