#include "ui/RecommendationCell.h"

#include "ui/LineBreaks.h"
#include "ui/Metrics.h"
#include "ui/SymbolLook.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QPainter>
#include <QTextLayout>

#include <vector>

namespace veridane::ui {
namespace {

/// One or two lines that are no wider than that.
std::vector<QString> lines(const QString& text, const QFont& font, int width) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid())
        line.setLineWidth(width);
    layout.endLayout();
    const int end = line.isValid() ? line.textLength() : 0;
    std::vector<QString> result = {text.left(end).trimmed()};
    if (end < text.size())
        result.push_back(QFontMetrics(font).elidedText(text.mid(end), Qt::ElideRight, width));
    return result;
}

} // namespace

void RecommendationCell::paint(QPainter& painter, const QRect& rect, const QFont& font,
                               const Theme& theme) const {
    const SymbolLook look = lookOf(m_recommendation.urgency);
    theme.drawSymbol(painter, {rect.x(), rect.y(), metrics::symbol, rect.height()}, look.symbol,
                     metrics::symbol, look.tone);
    const QRect text = rect.adjusted(metrics::symbol + metrics::cellGap, 0, 0, 0);
    if (text.width() <= 0)
        return;
    painter.setFont(font);
    painter.setPen(theme.colours().text);
    const std::vector<QString> shown =
        lines(boundForLayout(toQString(m_recommendation.verdict)), font, text.width());
    const int height = theme.scaled(metrics::cellLineHeight);
    int y = text.y() + (text.height() - height * static_cast<int>(shown.size())) / 2;
    for (const QString& line : shown) {
        painter.drawText(QRect(text.x(), y, text.width(), height),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, line);
        y += height;
    }
}

} // namespace veridane::ui
