#pragma once

#include "ui/PaintedButton.h"

#include <string>

namespace veridane::ui {

/// A link over the width of a card: a symbol, the title, and at the end the arrow that says that it
/// leaves the program. The row is wider than what stands in it, by `metrics::linkRowOverhang` on
/// each side.
class LinkRow : public PaintedButton {
    Q_OBJECT

public:
    LinkRow(const Theme& theme, std::string symbol, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] QRect titleRect() const override;

private:
    std::string m_symbol;
};

} // namespace veridane::ui
