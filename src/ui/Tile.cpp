#include "ui/Tile.h"

#include "ui/FocusRing.h"
#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/TabularText.h"

#include <QPainter>

#include <algorithm>

namespace veridane::ui {
namespace {

constexpr int titleFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;

} // namespace

Tile::Tile(const Theme& theme, const SymbolLook& look, StatusFilter filter, QWidget* parent)
    : PaintedButton(theme, parent), m_look(look), m_filter(filter) {
    setCheckable(true);
    setFont(theme.font(TextStyle::caption));
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setRing(*this, {.radius = metrics::tileRadius});
    setCount(0);
}

QRect Tile::wrappedTitleRect(int width) const {
    const int top = metrics::space10 + theme().lineHeight(TextStyle::title2) + metrics::space4;
    const QRect room(metrics::space4, top, width - 2 * metrics::space4, QWIDGETSIZE_MAX);
    const QRect text = fontMetrics().boundingRect(room, titleFlags, title());
    return {room.x(), top, room.width(),
            std::max(text.height(), theme().lineHeight(TextStyle::caption))};
}

int Tile::heightForWidth(int width) const {
    const QRect rect = wrappedTitleRect(width);
    return rect.y() + rect.height() + metrics::space10;
}

QSize Tile::sizeHint() const {
    const int width = fontMetrics().horizontalAdvance(title()) + 2 * metrics::space4;
    return {width, heightForWidth(width)};
}

QSize Tile::minimumSizeHint() const {
    return {0, heightForWidth(QWIDGETSIZE_MAX / 2)};
}

void Tile::paintCount(QPainter& painter) const {
    const QFont large = theme().font(TextStyle::title2);
    const int countWidth = tabular::width(large, count());
    const int width = metrics::symbol + metrics::tileCountGap + countWidth;
    const QRect line((this->width() - width) / 2, metrics::space10, width,
                     theme().lineHeight(TextStyle::title2));
    theme().drawSymbol(painter, {line.x(), line.y(), metrics::symbol, line.height()}, m_look.symbol,
                       metrics::symbol, m_look.tone);
    painter.setFont(large);
    painter.setPen(theme().colours().text);
    tabular::draw(painter, line, Qt::AlignRight, count());
}

void Tile::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), metrics::tileRadius, theme().colours().card);
    paintState(painter, metrics::tileRadius);

    // The tile that means everything has no hue; its frame is quieter than a text would be.
    const Tone frame = m_look.tone == Tone::secondary ? Tone::gray : m_look.tone;
    if (isChecked())
        painting::strokeInside(painter, rect(), metrics::tileRadius,
                               faded(theme().symbolColour(frame), opacity::activeTileBorder),
                               metrics::activeTileBorder);
    else
        painting::strokeInside(painter, rect(), metrics::tileRadius,
                               theme().tint(frame, opacity::tileBorder), metrics::hairline);
    paintCount(painter);
    painter.setFont(font());
    painter.setPen(theme().colours().secondary);
    painter.drawText(wrappedTitleRect(width()), titleFlags, title());
}

} // namespace veridane::ui
