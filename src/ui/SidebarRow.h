#pragma once

#include "ui/PaintedButton.h"
#include "ui/Theme.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace veridane::ui {

/// A choice in the sidebar with the number of objects behind it. Checked while it is the active
/// choice.
class SidebarRow : public PaintedButton {
    Q_OBJECT

public:
    struct Look {
        std::string symbol;
        Tone tone = Tone::secondary;
        int symbolSize = 16;
        int height = 24;
        bool isVerbatim = false; // a title from a scanned object
    };
    SidebarRow(const Theme& theme, Look look, QWidget* parent = nullptr);

    void setCount(std::size_t count);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QRect titleRect() const;

    Look m_look;
    QString m_count;
};

} // namespace veridane::ui
