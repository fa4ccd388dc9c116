#include "ui/ReadinessButton.h"

#include "ui/FocusRing.h"
#include "ui/Label.h"
#include "ui/Metrics.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QPainter>

namespace veridane::ui {

ReadinessButton::ReadinessButton(const Theme& theme, QWidget* parent)
    : PaintedButton(theme, parent),
      m_action(new Label(theme, TextStyle::calloutSemibold, Tone::orange, this)) {
    m_action->setAttribute(Qt::WA_TransparentForMouseEvents);
    setFont(theme.font(TextStyle::calloutMedium));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setRing(*this, {.gap = 0, .radius = metrics::buttonRadius});
}

void ReadinessButton::setAction(std::string_view action) {
    m_action->setText(toQString(action));
    place();
}

void ReadinessButton::place() {
    const int width = m_action->sizeHint().width();
    const int right = this->width() - metrics::readinessOverhang - metrics::smallSymbol -
                      metrics::readinessActionGap;
    m_action->setGeometry(right - width, 0, width, height());
}

void ReadinessButton::resizeEvent(QResizeEvent* event) {
    PaintedButton::resizeEvent(event);
    place();
}

QSize ReadinessButton::sizeHint() const {
    return {0, theme().scaled(metrics::readinessHeight) + 2 * metrics::space2};
}

void ReadinessButton::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    paintState(painter, metrics::buttonRadius);
    QRect line = rect().adjusted(metrics::readinessOverhang, 0, -metrics::readinessOverhang, 0);

    theme().drawSymbol(painter, {line.x(), 0, metrics::symbol, height()},
                       "exclamationmark.bubble.fill", metrics::symbol, Tone::orange);
    line.setLeft(line.left() + metrics::symbol + metrics::space8);

    theme().drawSymbol(painter,
                       {line.right() + 1 - metrics::smallSymbol, 0, metrics::smallSymbol, height()},
                       "arrow.right.circle.fill", metrics::smallSymbol, Tone::orange);
    line.setRight(m_action->x() - metrics::space8);

    painter.setFont(font());
    painter.setPen(theme().colours().text);
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(title(), Qt::ElideRight, line.width()));
}

} // namespace veridane::ui
