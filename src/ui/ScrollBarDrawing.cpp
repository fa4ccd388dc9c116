#include "ui/ScrollBarDrawing.h"

#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>
#include <cstdint>

namespace veridane::ui::ScrollBarDrawing {

QRect thumb(const QStyleOptionSlider& option) {
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int length =
        (isHorizontal ? option.rect.width() : option.rect.height()) - 2 * metrics::scrollThumbGap;
    const std::int64_t range = std::int64_t{option.maximum} - option.minimum;
    if (range <= 0 || length <= 0)
        return {};
    const auto proportional =
        static_cast<int>(std::int64_t{length} * option.pageStep / (range + option.pageStep));
    const int size = std::clamp(proportional, std::min(metrics::scrollThumbLength, length), length);
    const int place =
        metrics::scrollThumbGap + QStyle::sliderPositionFromValue(option.minimum, option.maximum,
                                                                  option.sliderPosition,
                                                                  length - size, option.upsideDown);
    return isHorizontal
               ? QRect(option.rect.x() + place, option.rect.y(), size, option.rect.height())
               : QRect(option.rect.x(), option.rect.y() + place, option.rect.width(), size);
}

void draw(const Theme& theme, const QStyleOptionSlider& option, QPainter& painter) {
    const QRect whole = thumb(option);
    if (whole.isEmpty())
        return;
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int inset = (metrics::scrollBarExtent - metrics::scrollThumbWidth) / 2;
    const QRect rect =
        isHorizontal ? whole.adjusted(0, inset, 0, -inset) : whole.adjusted(inset, 0, -inset, 0);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver) ||
                           option.state.testFlag(QStyle::State_Sunken);
    painting::fillRounded(painter, rect, metrics::scrollThumbWidth / 2.0,
                          isHovered ? theme.colours().scrollThumbHover
                                    : theme.colours().scrollThumb);
}

} // namespace veridane::ui::ScrollBarDrawing
