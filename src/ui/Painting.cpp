#include "ui/Painting.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace veridane::ui::painting {

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(rect, radius, radius);
    painter.restore();
}

// The difference of two shapes and not a pen, which would be two pixels wide at half strength.
void strokeInside(QPainter& painter, const QRectF& rect, double radius, const QColor& colour,
                  double width) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addRoundedRect(rect, radius, radius);
    const double inner = std::max(0.0, radius - width);
    path.addRoundedRect(rect.adjusted(width, width, -width, -width), inner, inner);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, colour);
    painter.restore();
}

} // namespace veridane::ui::painting
