#pragma once

#include <QWidget>

namespace veridane::ui {

class Preferences;
class Theme;

/// The settings window.
class SettingsView : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the window.
    SettingsView(Preferences& preferences, const Theme& theme, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void retranslate();
};

} // namespace veridane::ui
