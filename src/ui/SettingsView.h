#pragma once

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
class SettingsView : public QDialog {
    Q_OBJECT

public:
    /// All must outlive the window.
    SettingsView(Preferences& preferences, Workspace& workspace, Relauncher& relauncher,
                 const Theme& theme, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();

    QTabWidget* m_tabs;
};

} // namespace veridane::ui
