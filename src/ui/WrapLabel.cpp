#include "ui/WrapLabel.h"

#include <QPainter>

#include <algorithm>

namespace veridane::ui {

struct WrapLabel::Lines {
    struct Of {
        QString text;
        WrappedTextForm form;
        int width;

        bool operator==(const Of&) const = default;
    };
    explicit Lines(const Of& what) : of(what), wrapped(what.text, what.form, what.width) {}

    Of of;
    WrappedText wrapped;
};

WrapLabel::WrapLabel(const Theme& theme, TextStyle style, Tone tone, QWidget* parent)
    : Label(theme, style, tone, parent) {
    setWordWrap(true);
}

WrapLabel::~WrapLabel() = default;

const WrappedText& WrapLabel::lines(int width) const {
    const Lines::Of wanted = {.text = text(),
                              .form = {.font = font(),
                                       .lineHeight = theme().lineHeight(textStyle()),
                                       .isCentred = alignment().testFlag(Qt::AlignHCenter),
                                       .breaksBehindSlashes = m_breaksBehindSlashes},
                              .width = width};
    if (!m_lines || m_lines->of != wanted)
        m_lines = std::make_unique<Lines>(wanted);
    return m_lines->wrapped;
}

const WrappedText& WrapLabel::shownLines() const {
    return lines(contentsRect().width());
}

QPoint WrapLabel::origin() const {
    QPoint origin = contentsRect().topLeft();
    if (alignment().testFlag(Qt::AlignVCenter))
        origin.ry() += (contentsRect().height() - shownLines().size().height()) / 2;
    return origin;
}

int WrapLabel::heightForWidth(int width) const {
    // Layouts ask for that as well. One line for each character takes seconds for a long text.
    if (width <= 0)
        return minimumSizeHint().height();
    return lines(std::min(width, maximumWidth())).size().height();
}

QSize WrapLabel::sizeHint() const {
    return lines(maximumWidth()).size();
}

QSize WrapLabel::minimumSizeHint() const {
    return {0, theme().lineHeight(textStyle())};
}

void WrapLabel::paintLines(const TextSpan& selected) {
    QPainter painter(this);
    painter.setPen(colour());
    shownLines().draw(painter, origin(), selected, palette());
}

void WrapLabel::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    paintLines({});
}

} // namespace veridane::ui
