#include "ui/Card.h"

#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QPainter>

namespace veridane::ui {

Card::Card(const Theme& theme, CardStyle style, int radius, QWidget* parent)
    : QFrame(parent), m_theme(theme), m_style(style), m_radius(radius) {}

void Card::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    const ThemeColours& colours = m_theme.colours();
    const bool isTinted = m_style == CardStyle::tinted;
    painting::fillRounded(painter, rect(), m_radius, isTinted ? colours.tintedCard : colours.card);
    painting::strokeInside(painter, rect(), m_radius,
                           isTinted ? colours.tintedCardBorder : colours.separator,
                           metrics::hairline);
}

} // namespace veridane::ui
