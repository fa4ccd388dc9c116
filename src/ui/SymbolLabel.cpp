#include "ui/SymbolLabel.h"

#include <QPainter>

namespace veridane::ui {

SymbolLabel::SymbolLabel(const Theme& theme, std::string_view name, int size, int box, Tone tone,
                         QWidget* parent)
    : QWidget(parent), m_theme(theme), m_name(name), m_size(size), m_tone(tone) {
    setFixedSize(box, size);
}

void SymbolLabel::setSymbol(std::string_view name, Tone tone) {
    m_name = name;
    m_tone = tone;
    update();
}

void SymbolLabel::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    m_theme.drawSymbol(painter, rect(), m_name, m_size, m_tone);
}

} // namespace veridane::ui
