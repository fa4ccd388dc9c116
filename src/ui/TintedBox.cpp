#include "ui/TintedBox.h"

#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QPainter>

namespace veridane::ui {

TintedBox::TintedBox(const Theme& theme, const Look& look, QWidget* parent)
    : QFrame(parent), m_theme(theme), m_look(look) {}

void TintedBox::setTone(Tone tone) {
    m_tone = tone;
    update();
}

void TintedBox::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), m_look.radius, m_theme.tint(m_tone, m_look.fill));
    if (m_look.border > 0)
        painting::strokeInside(painter, rect(), m_look.radius, m_theme.tint(m_tone, m_look.border),
                               metrics::hairline);
}

} // namespace veridane::ui
