#pragma once

#include <QDialog>

namespace veridane::ui {

class Preferences;
class Theme;

/// The settings window.
class SettingsView : public QDialog {
    Q_OBJECT

public:
    /// Both must outlive the window.
    SettingsView(Preferences& preferences, const Theme& theme, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
};

} // namespace veridane::ui
