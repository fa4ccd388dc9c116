#pragma once

#include <QRectF>

class QColor;
class QPainter;

/// Shapes that several widgets draw in the same way. All of them are antialiased and leave the
/// painter as it was.
namespace veridane::ui::painting {

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& colour);

/// A line of `width` inside the edge of the rectangle.
void strokeInside(QPainter& painter, const QRectF& rect, double radius, const QColor& colour,
                  double width);

} // namespace veridane::ui::painting
