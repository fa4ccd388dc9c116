#include "ui/Card.h"

#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QPainter>

namespace veridane::ui {

void paintCard(QPainter& painter, const QRect& rect, const Theme& theme, CardStyle style,
               int radius) {
    const ThemeColours& colours = theme.colours();
    const bool isTinted = style == CardStyle::tinted;
    painting::fillRounded(painter, rect, radius, isTinted ? colours.tintedCard : colours.card);
    painting::strokeInside(painter, rect, radius,
                           isTinted ? colours.tintedCardBorder : colours.separator,
                           metrics::hairline);
}

Card::Card(const Theme& theme, CardStyle style, int radius, QWidget* parent)
    : QFrame(parent), m_theme(theme), m_style(style), m_radius(radius) {}

void Card::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    paintCard(painter, rect(), m_theme, m_style, m_radius);
}

} // namespace veridane::ui
