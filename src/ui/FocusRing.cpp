#include "ui/FocusRing.h"

#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFocusFrame>
#include <QPainter>
#include <QScrollArea>
#include <QVariant>

namespace veridane::ui {
namespace {

constexpr const char* gapProperty = "ringGap";
constexpr const char* radiusProperty = "ringRadius";
constexpr const char* alwaysProperty = "ringAlways";

/// A scroll area does so by itself, but only while the focus moves within it.
void scrollTo(QWidget& widget) {
    for (QWidget* around = widget.parentWidget(); around; around = around->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(around))
            return area->ensureWidgetVisible(&widget, 0, metrics::space18);
}

} // namespace

bool comesFromKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

bool isInterruption(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

bool hasRing(const QWidget& widget) {
    return widget.property(gapProperty).isValid();
}

void setRing(QWidget& widget, const RingShape& shape) {
    widget.setProperty(gapProperty, shape.gap);
    widget.setProperty(radiusProperty, shape.radius);
    widget.setProperty(alwaysProperty, shape.isAlwaysShown);
}

/// The toolkit's frame follows its widget; this one draws our ring in it.
class FocusRing::Frame : public QFocusFrame {
public:
    explicit Frame(const Theme& theme) : QFocusFrame(nullptr), m_theme(theme) {}

protected:
    void paintEvent(QPaintEvent* event) override {
        Q_UNUSED(event);
        if (!widget())
            return;
        const int gap = widget()->property(gapProperty).toInt();
        const int inset = metrics::focusRingGap - gap;
        QPainter painter(this);
        painting::strokeInside(painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                               widget()->property(radiusProperty).toInt() + gap +
                                   metrics::focusRingWidth,
                               m_theme.colours().focusRing, metrics::focusRingWidth);
    }

private:
    const Theme& m_theme;
};

FocusRing::FocusRing(const Theme& theme, QObject* parent) : QObject(parent), m_theme(theme) {
    qApp->installEventFilter(this);
}

FocusRing::~FocusRing() {
    delete m_frame;
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut)
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || !hasRing(*widget))
        return false;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const bool comes = event->type() == QEvent::FocusIn;
    if (!comes && isInterruption(reason) && m_frame && m_frame->widget() == widget)
        m_interrupted = widget;
    const bool isShown =
        comes && (widget->property(alwaysProperty).toBool() || comesFromKeyboard(reason) ||
                  (isInterruption(reason) && m_interrupted == widget));
    if (comes)
        m_interrupted = nullptr;
    // Not after a click: between press and release the widget must stay under the pointer.
    if (comes && comesFromKeyboard(reason))
        scrollTo(*widget);
    if (isShown && !m_frame)
        m_frame = new Frame(m_theme); // it becomes a child of the widget's window
    if (m_frame)
        m_frame->setWidget(isShown ? widget : nullptr);
    return false;
}

} // namespace veridane::ui
