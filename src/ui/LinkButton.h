#pragma once

#include "ui/PaintedButton.h"

#include <cstdint>

namespace veridane::ui {

enum class TextStyle : std::uint8_t;

/// A link that is nothing but its text; underlined while it is hovered.
class LinkButton : public PaintedButton {
    Q_OBJECT

public:
    LinkButton(const Theme& theme, TextStyle style, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TextStyle m_style;
};

} // namespace veridane::ui
