#include "ui/Label.h"

#include "ui/HelpTags.h"
#include "ui/TabularText.h"
#include "ui/Text.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>

namespace veridane::ui {

Label::Label(const Theme& theme, TextStyle style, Tone tone, QWidget* parent)
    : QLabel(parent), m_theme(theme), m_style(style), m_tone(tone) {
    setFont(theme.font(style));
    setTextFormat(Qt::PlainText);
}

void Label::setTone(Tone tone) {
    m_tone = tone;
    update();
}

QSize Label::withMargins(const QSize& contents) const {
    return contents.grownBy(contentsMargins());
}

QSize Label::sizeHint() const {
    return withMargins({fontMetrics().horizontalAdvance(text()) + 1, m_theme.lineHeight(m_style)});
}

QSize Label::minimumSizeHint() const {
    return withMargins({0, m_theme.lineHeight(m_style)});
}

QColor Label::colour() const {
    return m_theme.textColour(m_tone);
}

bool Label::isCut() const {
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void Label::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painter.setPen(colour());
    const QString shown =
        isCut() ? fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()) : text();
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

bool Label::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || !isCut())
        return QLabel::event(event);
    showHelpTag(*static_cast<QHelpEvent*>(event), text(), *this);
    return true;
}

QSize TabularLabel::sizeHint() const {
    return withMargins({tabular::width(font(), text()), theme().lineHeight(textStyle())});
}

void TabularLabel::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(colour());
    tabular::draw(painter, contentsRect(), alignment(), text());
}

} // namespace veridane::ui
