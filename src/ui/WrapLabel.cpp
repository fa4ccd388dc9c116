#include "ui/WrapLabel.h"

#include "ui/LineBreaks.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace veridane::ui {

WrapLabel::WrapLabel(const Theme& theme, TextStyle style, Tone tone, QWidget* parent)
    : Label(theme, style, tone, parent) {
    setWordWrap(true);
}

QSize WrapLabel::layOut(int width, QPainter* painter) const {
    const int lineHeight = theme().lineHeight(textStyle());
    QTextLayout layout(boundForLayout(text()), font());
    layout.beginLayout();
    int lines = 0;
    double widest = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const double room = width - line.naturalTextWidth();
        const double x = alignment().testFlag(Qt::AlignHCenter) ? room / 2 : 0;
        line.setPosition({x, lines * lineHeight + (lineHeight - line.height()) / 2});
        widest = std::max(widest, line.naturalTextWidth());
        ++lines;
    }
    layout.endLayout();
    const int height = lines * lineHeight;
    if (painter) {
        QPoint start = contentsRect().topLeft();
        if (alignment().testFlag(Qt::AlignVCenter))
            start.ry() += (contentsRect().height() - height) / 2;
        layout.draw(painter, start);
    }
    return {static_cast<int>(std::ceil(widest)), height};
}

int WrapLabel::heightForWidth(int width) const {
    return layOut(std::min(width, maximumWidth()), nullptr).height();
}

QSize WrapLabel::sizeHint() const {
    return layOut(std::min(maximumWidth(), QWIDGETSIZE_MAX), nullptr);
}

QSize WrapLabel::minimumSizeHint() const {
    return {0, theme().lineHeight(textStyle())};
}

void WrapLabel::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painter.setPen(colour());
    static_cast<void>(layOut(contentsRect().width(), &painter));
}

} // namespace veridane::ui
