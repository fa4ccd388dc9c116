#pragma once

#include "coordination/StatusFilter.h"
#include "ui/PaintedButton.h"
#include "ui/SymbolLook.h"
#include "ui/Theme.h"

namespace veridane::ui {

/// A count in large digits that sets a filter when it is pressed. Checked while that filter is set.
class Tile : public PaintedButton {
    Q_OBJECT

public:
    Tile(const Theme& theme, const SymbolLook& look, StatusFilter filter,
         QWidget* parent = nullptr);

    [[nodiscard]] StatusFilter filter() const { return m_filter; }

    /// A narrow tile breaks its title into lines and grows.
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintCount(QPainter& painter) const;
    [[nodiscard]] QRect wrappedTitleRect(int width) const;

    SymbolLook m_look;
    StatusFilter m_filter;
};

} // namespace veridane::ui
