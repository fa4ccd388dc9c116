#pragma once

#include "ui/WrapLabel.h"

#include <QDeadlineTimer>

#include <optional>

namespace veridane::ui {

/// A text from scanned objects that can be selected and copied: with the mouse, and with the keys
/// once the mouse has given it the focus. It wraps wherever it must, but behind a slash where it
/// can, and takes whatever width it gets.
class SelectableLabel : public WrapLabel {
    Q_OBJECT

public:
    SelectableLabel(const Theme& theme, TextStyle style, Tone tone = Tone::primary,
                    QWidget* parent = nullptr);

    /// Another text is not selected; the same one stays as it is. Not through a pointer to
    /// `QLabel`, whose own keeps the selection.
    void setText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] TextSpan selected() const;
    [[nodiscard]] int gapAt(const QMouseEvent& event) const;
    [[nodiscard]] bool isTripleClick(const QMouseEvent& press) const;
    void select(int from, int to);
    void selectAll();
    void copy() const;

    std::optional<int> m_dragStart; // while the mouse selects
    QDeadlineTimer m_tripleClick;   // until then a further press there is one
    QPointF m_doubleClickAt;
};

} // namespace veridane::ui
