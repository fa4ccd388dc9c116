#pragma once

#include <QRect>

class QPainter;
class QStyleOptionSlider;

/// Scroll bars that lie over the content: nothing but a thumb.
namespace veridane::ui {
class Theme;
}

namespace veridane::ui::scroll_bar_drawing {

/// The part that the thumb moves in.
[[nodiscard]] QRect groove(const QStyleOptionSlider& option);
[[nodiscard]] QRect thumb(const QStyleOptionSlider& option);
void draw(const Theme& theme, const QStyleOptionSlider& option, QPainter& painter);

} // namespace veridane::ui::scroll_bar_drawing
