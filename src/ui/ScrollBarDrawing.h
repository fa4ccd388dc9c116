#pragma once

#include <QRect>

class QPainter;
class QStyleOptionSlider;

namespace veridane::ui {
class Theme;
}

/// Scroll bars that lie over the content: nothing but a thumb.
namespace veridane::ui::ScrollBarDrawing {

[[nodiscard]] QRect thumb(const QStyleOptionSlider& option);
void draw(const Theme& theme, const QStyleOptionSlider& option, QPainter& painter);

} // namespace veridane::ui::ScrollBarDrawing
