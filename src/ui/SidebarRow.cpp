#include "ui/SidebarRow.h"

#include "ui/FocusRing.h"
#include "ui/Painting.h"
#include "ui/TabularText.h"

#include <QPainter>

#include <utility>

namespace veridane::ui {

SidebarRow::SidebarRow(const Theme& theme, Look look, QWidget* parent)
    : PaintedButton(theme, parent), m_look(std::move(look)) {
    setCheckable(true);
    setFont(m_look.isVerbatim ? theme.verbatimFont(TextStyle::body) : theme.font(TextStyle::body));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setRing(*this, {.gap = insideGap, .radius = metrics::sidebarRowRadius});
    setCount(0);
}

QSize SidebarRow::sizeHint() const {
    return {0, theme().scaled(m_look.height)};
}

QRect SidebarRow::titleRect() const {
    const int left = metrics::space6 + metrics::sidebarSymbolBox + metrics::space8;
    const int right = metrics::space6 + metrics::space8 +
                      tabular::width(theme().font(TextStyle::callout), count());
    return rect().adjusted(left, 0, -right, 0);
}

void SidebarRow::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    const ThemeColours& colours = theme().colours();
    if (isChecked())
        painting::fillRounded(painter, rect(), metrics::sidebarRowRadius, colours.activeRow);
    paintState(painter, metrics::sidebarRowRadius);
    theme().drawSymbol(painter, {metrics::space6, 0, metrics::sidebarSymbolBox, height()},
                       m_look.symbol, m_look.symbolSize, m_look.tone);
    drawTitle(painter);
    painter.setFont(theme().font(TextStyle::callout));
    painter.setPen(colours.secondary);
    tabular::draw(painter, rect().adjusted(0, 0, -metrics::space6, 0), Qt::AlignRight, count());
}

} // namespace veridane::ui
