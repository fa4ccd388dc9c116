#include "ui/PaintedButton.h"

#include "ui/FocusRing.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QFocusEvent>

namespace veridane::ui {

PaintedButton::PaintedButton(const Theme& theme, QWidget* parent)
    : QPushButton(parent), m_theme(theme) {
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void PaintedButton::setTitle(std::string_view title) {
    m_title = toQString(title);
    setText(withoutMnemonics(title));
}

QColor PaintedButton::stateFill() const {
    if (isDown())
        return m_theme.colours().pressed;
    if (isEnabled() && underMouse())
        return m_theme.colours().hover;
    return Qt::transparent;
}

void PaintedButton::focusInEvent(QFocusEvent* event) {
    m_showsFocus = comesFromKeyboard(event->reason());
    QPushButton::focusInEvent(event);
}

void PaintedButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QPushButton::keyPressEvent(event);
        return;
    }
    click();
}

} // namespace veridane::ui
