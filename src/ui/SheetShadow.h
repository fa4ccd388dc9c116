#pragma once

#include <QImage>
#include <QSize>

namespace veridane::ui {

/// The shadow that a sheet casts on the window behind it.
struct SheetShadow {
    QSize sheet; // in logical pixels
    bool isDark = false;
    QImage picture; // one pixel is one logical pixel: there is nothing sharp in it
    int margin = 0; // by which it reaches beyond the sheet on all sides

    [[nodiscard]] static SheetShadow of(const QSize& sheet, bool isDark);
};

} // namespace veridane::ui
