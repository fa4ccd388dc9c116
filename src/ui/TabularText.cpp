#include "ui/TabularText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace veridane::ui::tabular {
namespace {

double advance(const QFontMetricsF& metrics, QChar character) {
    return metrics.horizontalAdvance(character.isDigit() ? QLatin1Char('0') : character);
}

double exactWidth(const QFontMetricsF& metrics, const QString& text) {
    double sum = 0;
    for (const QChar character : text)
        sum += advance(metrics, character);
    return sum;
}

} // namespace

int width(const QFont& font, const QString& text) {
    return static_cast<int>(std::ceil(exactWidth(QFontMetricsF(font), text)));
}

void draw(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const QString& text) {
    const QFontMetricsF metrics(painter.font());
    const double free = rect.width() - exactWidth(metrics, text);
    double x = rect.x();
    if (alignment.testFlag(Qt::AlignRight))
        x += free;
    else if (alignment.testFlag(Qt::AlignHCenter))
        x += free / 2;
    const double baseline = rect.y() + (rect.height() - metrics.height()) / 2 + metrics.ascent();
    for (const QChar character : text) {
        const double room = advance(metrics, character);
        const double own = metrics.horizontalAdvance(character);
        painter.drawText(QPointF(x + (room - own) / 2, baseline), QString(character));
        x += room;
    }
}

} // namespace veridane::ui::tabular
