#include "ui/LinkRow.h"

#include "ui/FocusRing.h"
#include "ui/Metrics.h"
#include "ui/Theme.h"

#include <QPainter>

#include <utility>

namespace veridane::ui {

LinkRow::LinkRow(const Theme& theme, std::string symbol, QWidget* parent)
    : PaintedButton(theme, parent), m_symbol(std::move(symbol)) {
    setFont(theme.font(TextStyle::body));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setRing(*this, {.gap = 0, .radius = metrics::buttonRadius});
}

QSize LinkRow::sizeHint() const {
    return {0, theme().scaled(metrics::legalRowHeight)};
}

QRect LinkRow::titleRect() const {
    const int left = metrics::linkRowOverhang + metrics::legalSymbolBox + metrics::space10;
    const int right = metrics::linkRowOverhang + metrics::linkArrow + metrics::space10;
    return rect().adjusted(left, 0, -right, 0);
}

void LinkRow::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    paintState(painter, metrics::buttonRadius);
    const QRect line = rect().adjusted(metrics::linkRowOverhang, 0, -metrics::linkRowOverhang, 0);
    theme().drawSymbol(painter, {line.x(), 0, metrics::legalSymbolBox, height()}, m_symbol,
                       metrics::legalSymbol, Tone::accent);
    theme().drawSymbol(painter,
                       {line.right() + 1 - metrics::linkArrow, 0, metrics::linkArrow, height()},
                       "arrow.up.right", metrics::linkArrow, Tone::secondary);
    drawTitle(painter);
}

} // namespace veridane::ui
