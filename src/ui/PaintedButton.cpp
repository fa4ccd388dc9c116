#include "ui/PaintedButton.h"

#include "ui/HelpTags.h"
#include "ui/Painting.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>

namespace veridane::ui {
namespace {

/// The toolkit's own answer to a press of a checkable button turns its check over, and nobody hears
/// of a click.
class AccessiblePaintedButton : public QAccessibleWidget {
public:
    explicit AccessiblePaintedButton(PaintedButton* button)
        : QAccessibleWidget(button,
                            button->accessibleState().checkable ? QAccessible::CheckBox
                                                                : QAccessible::Button,
                            button->text()) {}

    [[nodiscard]] QAccessible::State state() const override {
        const QAccessible::State special = button().accessibleState();
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = special.checkable;
        state.checked = special.checked;
        state.expandable = special.expandable;
        state.expanded = special.expanded;
        state.collapsed = special.collapsed;
        return state;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && button().accessibleName().isEmpty())
            return button().title();
        return QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QStringList actionNames() const override {
        return {QAccessibleActionInterface::pressAction(),
                QAccessibleActionInterface::setFocusAction()};
    }
    void doAction(const QString& name) override {
        if (name == QAccessibleActionInterface::pressAction())
            button().click();
        else
            QAccessibleWidget::doAction(name);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        Q_UNUSED(name);
        return {};
    }

private:
    [[nodiscard]] PaintedButton& button() const { return static_cast<PaintedButton&>(*widget()); }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    Q_UNUSED(className);
    auto* button = qobject_cast<PaintedButton*>(object);
    return button ? new AccessiblePaintedButton(button) : nullptr;
}

} // namespace

PaintedButton::PaintedButton(const Theme& theme, QWidget* parent)
    : QPushButton(parent), m_theme(theme) {
    static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    Q_UNUSED(isInstalled);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
}

void PaintedButton::setTitle(std::string_view title) {
    m_title = toQString(title);
    setText(withoutMnemonics(title));
}

QAccessible::State PaintedButton::accessibleState() const {
    QAccessible::State state;
    state.checkable = isCheckable();
    state.checked = isChecked();
    return state;
}

void PaintedButton::setCount(std::size_t count) {
    const QString text = QString::number(count);
    if (text == m_count)
        return;
    m_count = text;
    setAccessibleDescription(text);
    update();
}

void PaintedButton::paintState(QPainter& painter, int radius) const {
    if (isDown())
        painting::fillRounded(painter, rect(), radius, m_theme.colours().pressed);
    else if (isEnabled() && underMouse())
        painting::fillRounded(painter, rect(), radius, m_theme.colours().hover);
}

void PaintedButton::drawTitle(QPainter& painter) const {
    const QRect line = titleRect();
    painter.setFont(font());
    painter.setPen(m_theme.colours().text);
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_title, Qt::ElideRight, line.width()));
}

bool PaintedButton::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || titleRect().isNull() ||
        fontMetrics().horizontalAdvance(m_title) <= titleRect().width())
        return QPushButton::event(event);
    showHelpTag(*static_cast<QHelpEvent*>(event), m_title, *this);
    return true;
}

void PaintedButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QPushButton::keyPressEvent(event);
        return;
    }
    click();
}

} // namespace veridane::ui
