#include "ui/LinkButton.h"

#include "ui/FocusRing.h"
#include "ui/Metrics.h"
#include "ui/Theme.h"

#include <QPainter>

namespace veridane::ui {

LinkButton::LinkButton(const Theme& theme, TextStyle style, QWidget* parent)
    : PaintedButton(theme, parent), m_style(style) {
    setFont(theme.font(style));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setRing(*this, {.radius = metrics::linkRadius});
}

QSize LinkButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(title()) + 1, theme().lineHeight(m_style)};
}

void LinkButton::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    QFont shown = font();
    shown.setUnderline(underMouse());
    painter.setFont(shown);
    painter.setPen(isDown() ? theme().colours().accentPressed : theme().colours().accentText);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, title());
}

} // namespace veridane::ui
