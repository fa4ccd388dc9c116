#pragma once

#include <QAccessible>
#include <QPushButton>
#include <QRect>

#include <cstddef>
#include <string_view>

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
    void setCount(std::size_t count);

    /// What assistive technology is told beyond what every widget tells.
    [[nodiscard]] virtual QAccessible::State accessibleState() const;

protected:
    [[nodiscard]] const Theme& theme() const { return m_theme; }
    /// As it is shown; empty before `setCount`.
    [[nodiscard]] const QString& count() const { return m_count; }
    /// Lays the fill of a hovered or pressed button over its background.
    void paintState(QPainter& painter, int radius) const;

    /// Where `drawTitle` puts the title; null for a button that draws it in its own way.
    [[nodiscard]] virtual QRect titleRect() const { return {}; }
    /// On one line, in the widget's font. What does not fit is cut at its end, and then the whole
    /// title is the help tag.
    void drawTitle(QPainter& painter) const;

    bool event(QEvent* event) override;
    void nextCheckState() override {}
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Theme& m_theme;
    QString m_title;
    QString m_count;
};

} // namespace veridane::ui
