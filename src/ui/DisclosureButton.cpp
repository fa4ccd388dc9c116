#include "ui/DisclosureButton.h"

#include "ui/FocusRing.h"
#include "ui/Metrics.h"
#include "ui/Theme.h"

#include <QPainter>
#include <QStyle>
#include <QVariantAnimation>

namespace veridane::ui {
namespace {

constexpr int turnMilliseconds = 120;
constexpr double openDegrees = 90; // from a chevron that points to the right

} // namespace

DisclosureButton::DisclosureButton(const Theme& theme, std::string_view symbol, QWidget* parent)
    : PaintedButton(theme, parent), m_symbol(symbol), m_turn(new QVariantAnimation(this)) {
    setCheckable(true);
    setFont(theme.font(TextStyle::subheadline));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setRing(*this, {.gap = insideGap, .radius = metrics::sidebarRowRadius});
    m_turn->setDuration(turnMilliseconds);
    connect(m_turn, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(this, &QAbstractButton::toggled, this, [this](bool isOpen) {
        m_turn->stop();
        if (!isVisible() || style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0)
            return;
        m_turn->setStartValue(isOpen ? 0.0 : openDegrees);
        m_turn->setEndValue(isOpen ? openDegrees : 0.0);
        m_turn->start();
    });
}

QSize DisclosureButton::sizeHint() const {
    return {0, theme().scaled(metrics::kindRowHeight)};
}

QAccessible::State DisclosureButton::accessibleState() const {
    QAccessible::State state;
    state.expandable = true;
    state.expanded = isChecked();
    state.collapsed = !isChecked();
    return state;
}

void DisclosureButton::nextCheckState() {
    setChecked(!isChecked());
}

void DisclosureButton::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    paintState(painter, metrics::sidebarRowRadius);

    int x = metrics::space6;
    const QRect chevron(x, 0, metrics::disclosureChevron, height());
    const bool isTurning = m_turn->state() == QAbstractAnimation::Running;
    painter.save();
    if (isTurning) {
        const QPointF middle = QRectF(chevron).center();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.translate(middle);
        painter.rotate(m_turn->currentValue().toDouble());
        painter.translate(-middle);
    }
    theme().drawSymbol(painter, chevron,
                       isChecked() && !isTurning ? "chevron.down" : "chevron.right",
                       metrics::disclosureChevron, Tone::secondary);
    painter.restore();

    x += metrics::disclosureChevron + metrics::space6;
    theme().drawSymbol(painter, {x, 0, metrics::updateSymbol, height()}, m_symbol,
                       metrics::updateSymbol, Tone::secondary);
    x += metrics::updateSymbol + metrics::space6;
    painter.setFont(font());
    painter.setPen(theme().colours().secondary);
    painter.drawText(rect().adjusted(x, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, title());
}

} // namespace veridane::ui
