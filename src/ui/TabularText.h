#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QRect;

/// Counts whose digits are all as wide as "0", so that nothing jumps while they change. The
/// interface's face has digits of different widths, and no switch for that in this toolkit.
namespace veridane::ui::tabular {

[[nodiscard]] int width(const QFont& font, const QString& text);

/// In the painter's font and colour, vertically in the middle; `alignment` is horizontal.
void draw(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const QString& text);

} // namespace veridane::ui::tabular
