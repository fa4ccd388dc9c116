#include "ui/Tile.h"

#include "ui/FocusRing.h"
#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/TabularText.h"

#include <QPainter>

namespace veridane::ui {
namespace {

constexpr int sidePadding = 4;
constexpr int countGap = 5; // between the symbol and the count
constexpr double quietBorder = 0.3;
constexpr float activeBorder = 0.95F;
constexpr int titleFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;

} // namespace

Tile::Tile(const Theme& theme, const Look& look, StatusFilter filter, QWidget* parent)
    : PaintedButton(theme, parent), m_look(look), m_filter(filter) {
    setCheckable(true);
    setFont(theme.font(TextStyle::caption));
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setRing(*this, {.gap = metrics::focusRingGap, .radius = metrics::tileRadius});
    setCount(0);
}

void Tile::setCount(std::size_t count) {
    const QString text = QString::number(count);
    if (text == m_count)
        return;
    m_count = text;
    setAccessibleDescription(text);
    update();
}

QRect Tile::titleRect(int width) const {
    const int top = metrics::space10 + theme().lineHeight(TextStyle::title2) + metrics::space4;
    const QRect room(sidePadding, top, width - 2 * sidePadding, QWIDGETSIZE_MAX);
    const QRect text = fontMetrics().boundingRect(room, titleFlags, title());
    return {room.x(), top, room.width(),
            std::max(text.height(), theme().lineHeight(TextStyle::caption))};
}

int Tile::heightForWidth(int width) const {
    const QRect rect = titleRect(width);
    return rect.y() + rect.height() + metrics::space10;
}

QSize Tile::sizeHint() const {
    const int width = fontMetrics().horizontalAdvance(title()) + 2 * sidePadding;
    return {width, heightForWidth(width)};
}

QSize Tile::minimumSizeHint() const {
    return {0, heightForWidth(QWIDGETSIZE_MAX / 2)};
}

void Tile::paintCount(QPainter& painter) const {
    const QFont large = theme().font(TextStyle::title2);
    const int countWidth = tabular::width(large, m_count);
    const int width = metrics::symbol + countGap + countWidth;
    const QRect line((this->width() - width) / 2, metrics::space10, width,
                     theme().lineHeight(TextStyle::title2));
    theme().drawSymbol(painter, {line.x(), line.y(), metrics::symbol, line.height()}, m_look.symbol,
                       metrics::symbol, m_look.tone);
    painter.setFont(large);
    painter.setPen(theme().colours().text);
    tabular::draw(painter, line, Qt::AlignRight, m_count);
}

void Tile::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), metrics::tileRadius, theme().colours().card);
    if (const QColor fill = stateFill(); fill.alpha() > 0)
        painting::fillRounded(painter, rect(), metrics::tileRadius, fill);

    QColor border = theme().tint(m_look.tone, quietBorder);
    if (isChecked()) {
        // The tile that means everything has no hue; its frame is quieter than a text would be.
        border = theme().symbolColour(m_look.tone == Tone::secondary ? Tone::gray : m_look.tone);
        border.setAlphaF(activeBorder);
    }
    painting::strokeInside(painter, rect(), metrics::tileRadius, border,
                           isChecked() ? metrics::activeTileBorder : metrics::tileBorder);
    paintCount(painter);
    painter.setFont(font());
    painter.setPen(theme().colours().secondary);
    painter.drawText(titleRect(width()), titleFlags, title());
}

} // namespace veridane::ui
