#pragma once

#include <QAccessible>
#include <QPushButton>

#include <string_view>

class QColor;

namespace veridane::ui {

class Theme;

/// The base of buttons that paint themselves: rows, tiles and statements. Their text is what
/// assistive technology calls them, and a count beside it their description. A checkable one shows
/// a choice that is kept elsewhere: a click does not change it.
class PaintedButton : public QPushButton {
    Q_OBJECT

public:
    explicit PaintedButton(const Theme& theme, QWidget* parent = nullptr);

    /// The text as it is shown; an "&" in it is an "&".
    void setTitle(std::string_view title);
    [[nodiscard]] const QString& title() const { return m_title; }

    /// What assistive technology is told beyond what every widget tells.
    [[nodiscard]] virtual QAccessible::State accessibleState() const;

protected:
    [[nodiscard]] const Theme& theme() const { return m_theme; }
    /// Laid over the background: the fill for a hovered or pressed button, else nothing.
    [[nodiscard]] QColor stateFill() const;
    /// Whether the focus came by the keyboard, so that it is to be shown.
    [[nodiscard]] bool showsFocus() const { return m_showsFocus && hasFocus(); }

    void nextCheckState() override {}
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Theme& m_theme;
    QString m_title;
    bool m_showsFocus = false;
};

} // namespace veridane::ui
