#pragma once

#include "ui/Metrics.h"
#include "ui/PaintedButton.h"
#include "ui/Theme.h"

#include <string>

namespace veridane::ui {

/// A choice in the sidebar with the number of objects behind it. Checked while it is the active
/// choice.
class SidebarRow : public PaintedButton {
    Q_OBJECT

public:
    struct Look {
        std::string symbol;
        Tone tone = Tone::secondary;
        int symbolSize = metrics::symbol;
        int height = metrics::kindRowHeight;
        bool isVerbatim = false; // a title from a scanned object
    };
    SidebarRow(const Theme& theme, Look look, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] QRect titleRect() const override;

private:
    Look m_look;
};

} // namespace veridane::ui
