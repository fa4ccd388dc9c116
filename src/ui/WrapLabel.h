#pragma once

#include "ui/Label.h"

namespace veridane::ui {

/// A text of several lines that keeps together what belongs together; see `boundForLayout`. It is
/// as high as its width demands.
class WrapLabel : public Label {
    Q_OBJECT

public:
    WrapLabel(const Theme& theme, TextStyle style, Tone tone = Tone::primary,
              QWidget* parent = nullptr);

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Lays the text out, paints it if there is a painter, and gives its size.
    [[nodiscard]] QSize layOut(int width, QPainter* painter) const;
};

} // namespace veridane::ui
