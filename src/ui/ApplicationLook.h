#pragma once

#include <QObject>

namespace veridane::ui {

class Theme;
class VeridaneStyle;

/// Gives all windows of the application the theme's look, and keeps it so while the theme changes.
/// One for each process, after the system's own look has been read.
class ApplicationLook : public QObject {
    Q_OBJECT

public:
    explicit ApplicationLook(const Theme& theme);
    ~ApplicationLook() override;

private:
    void apply();

    VeridaneStyle* m_style; // the application's
};

} // namespace veridane::ui
