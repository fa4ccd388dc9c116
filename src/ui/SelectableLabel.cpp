#include "ui/SelectableLabel.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QStyleHints>
#include <QTextBoundaryFinder>

namespace veridane::ui {
namespace {

/// Entries are called as in the toolkit's own fields.
QString toolkitText(const char* english) {
    return QCoreApplication::translate("QWidgetTextControl", english);
}

} // namespace

// The toolkit keeps the selection and moves it with the keys. Its lines are not ours, so that the
// mouse's way to a position, and painting, are done here.
SelectableLabel::SelectableLabel(const Theme& theme, TextStyle style, Tone tone, QWidget* parent)
    : WrapLabel(theme, style, tone, parent) {
    setFont(theme.verbatimFont(style));
    setBreaksBehindSlashes();
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setCursor(Qt::IBeamCursor);
}

void SelectableLabel::setText(const QString& text) {
    if (text == this->text())
        return;
    WrapLabel::setText(text);
    m_dragStart.reset();
    // Until then the toolkit would go on to select, and to copy, the old text.
    if (hasSelectedText())
        setSelection(0, 0);
}

TextSpan SelectableLabel::selected() const {
    return hasSelectedText() ? TextSpan{selectionStart(), static_cast<int>(selectedText().size())}
                             : TextSpan{};
}

int SelectableLabel::gapAt(const QMouseEvent& event) const {
    return shownLines().gapAt(event.position().toPoint() - origin());
}

void SelectableLabel::select(int from, int to) {
    setSelection(from, to - from); // backwards as well
    update();
}

void SelectableLabel::selectAll() {
    select(0, static_cast<int>(text().size()));
}

void SelectableLabel::copy() const {
    // The toolkit would copy an ordinary blank for one that does not break: another path.
    if (hasSelectedText())
        QGuiApplication::clipboard()->setText(selectedText());
}

bool SelectableLabel::isTripleClick(const QMouseEvent& press) const {
    const QPointF off = press.position() - m_doubleClickAt;
    return !m_tripleClick.hasExpired() && !press.modifiers() &&
           off.manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
}

void SelectableLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (isTripleClick(*event))
        return selectAll();
    const int at = gapAt(*event);
    m_dragStart = at;
    if (event->modifiers().testFlag(Qt::ShiftModifier) && hasSelectedText()) {
        const TextSpan old = selected();
        m_dragStart = at < old.start ? old.start + old.length : old.start;
    }
    select(*m_dragStart, at);
}

void SelectableLabel::mouseMoveEvent(QMouseEvent* event) {
    if (m_dragStart)
        select(*m_dragStart, gapAt(*event));
}

void SelectableLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_dragStart.reset();
    // Where the middle button pastes what is selected.
    if (QGuiApplication::clipboard()->supportsSelection() && hasSelectedText())
        QGuiApplication::clipboard()->setText(selectedText(), QClipboard::Selection);
}

void SelectableLabel::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_tripleClick.setRemainingTime(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    m_doubleClickAt = event->position();
    const int at = shownLines().characterAt(event->position().toPoint() - origin());
    QTextBoundaryFinder words(QTextBoundaryFinder::Word, text());
    words.setPosition(at);
    const auto start = words.isAtBoundary() ? at : words.toPreviousBoundary();
    words.setPosition(at);
    const auto end = words.toNextBoundary();
    if (start >= 0 && end >= 0)
        select(static_cast<int>(start), static_cast<int>(end));
}

void SelectableLabel::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return;
    }
    // There is no caret to move: they scroll what the text stands in.
    if (!(event->modifiers() & ~Qt::KeypadModifier)) {
        event->ignore();
        return;
    }
    WrapLabel::keyPressEvent(event);
}

void SelectableLabel::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copying = menu->addAction(toolkitText("&Copy"), this, &SelectableLabel::copy);
    copying->setShortcut(QKeySequence::Copy);
    copying->setEnabled(hasSelectedText());
    QAction* selecting =
        menu->addAction(toolkitText("Select All"), this, &SelectableLabel::selectAll);
    selecting->setShortcut(QKeySequence::SelectAll);
    menu->popup(event->globalPos());
}

void SelectableLabel::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    paintLines(selected());
}

} // namespace veridane::ui
