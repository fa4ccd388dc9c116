#pragma once

#include <QWidget>

#include <string>

namespace veridane::ui {

class ChoiceGroup;
class PaintedButton;
class Theme;

/// A choice of one among a few, side by side. The arrow keys move it.
class SegmentedControl : public QWidget {
    Q_OBJECT

public:
    SegmentedControl(const Theme& theme, int segments, QWidget* parent = nullptr);

    void setTitle(int segment, const std::string& title);
    /// No segment is chosen below 0.
    void choose(int segment);
    [[nodiscard]] PaintedButton& segment(int index) const;

Q_SIGNALS:
    /// By the user.
    void chosen(int segment);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Segment;

    const Theme& m_theme;
    ChoiceGroup* m_group;
};

} // namespace veridane::ui
