#include "ui/Sheet.h"

#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QVariantAnimation>

namespace veridane::ui {
namespace {

constexpr int entranceMilliseconds = 160;

class AccessibleSheet : public QAccessibleWidget {
public:
    explicit AccessibleSheet(Sheet* sheet) : QAccessibleWidget(sheet, QAccessible::Dialog) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const auto* content = static_cast<Sheet*>(widget())->content();
        return kind == QAccessible::Name ? content->accessibleName()
                                         : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    Q_UNUSED(className);
    auto* sheet = qobject_cast<Sheet*>(object);
    return sheet ? new AccessibleSheet(sheet) : nullptr;
}

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
        return true;
    default:
        return false;
    }
}

} // namespace

Sheet::Sheet(const Theme& theme, QWidget* content, QWidget& window)
    : QWidget(&window), m_theme(theme), m_content(content), m_focusBefore(window.focusWidget()),
      m_entrance(new QVariantAnimation(this)) {
    static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    Q_UNUSED(isInstalled);
    setObjectName(QStringLiteral("Sheet"));
    setAttribute(Qt::WA_DeleteOnClose);
    content->setParent(this);
    window.installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &Sheet::keepFocus);

    setGeometry(window.rect());
    place();
    fadeIn();
    show();
    raise();
    if (QPushButton* const button = defaultButton())
        button->setFocus(Qt::OtherFocusReason);
    else
        content->setFocus(Qt::OtherFocusReason);
}

Sheet::~Sheet() {
    qApp->disconnect(this); // the focus leaves with the last of us
}

QPushButton* Sheet::defaultButton() const {
    for (QPushButton* button : m_content->findChildren<QPushButton*>()) {
        if (button->isDefault())
            return button;
    }
    return nullptr;
}

void Sheet::fadeIn() {
    if (!window()->isVisible() || style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0)
        return;
    auto* effect = new QGraphicsOpacityEffect;
    effect->setOpacity(0);
    setGraphicsEffect(effect);
    m_entrance->setDuration(entranceMilliseconds);
    m_entrance->setStartValue(0.0);
    m_entrance->setEndValue(1.0);
    m_entrance->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_entrance, &QVariantAnimation::valueChanged, effect, [this, effect] {
        effect->setOpacity(m_entrance->currentValue().toDouble());
        place();
    });
    connect(m_entrance, &QAbstractAnimation::finished, this,
            [this] { setGraphicsEffect(nullptr); });
    m_entrance->start();
}

void Sheet::place() {
    QSize wanted = m_content->maximumSize();
    if (wanted.height() == QWIDGETSIZE_MAX)
        wanted.setHeight(m_content->heightForWidth(wanted.width()));
    m_content->resize(wanted.boundedTo(size()));
    const bool isEntering = m_entrance->state() == QAbstractAnimation::Running;
    const double progress = isEntering ? m_entrance->currentValue().toDouble() : 1;
    m_content->move((width() - m_content->width()) / 2,
                    (height() - m_content->height()) / 2 +
                        qRound((1 - progress) * metrics::sheetRise));
    update();
}

/// Focus that a shortcut or a menu takes elsewhere in the window comes back.
void Sheet::keepFocus(QWidget* old, QWidget* now) {
    if (!now || now->window() != window() || isAncestorOf(now) || !isVisible())
        return;
    QWidget* const inside = old && isAncestorOf(old) ? old : defaultButton();
    if (inside)
        inside->setFocus(Qt::OtherFocusReason);
}

bool Sheet::focusNextPrevChild(bool next) {
    QWidget* const focused = window()->focusWidget();
    QWidget* const start = isAncestorOf(focused) ? focused : m_content;
    QWidget* candidate = start;
    do {
        candidate = next ? candidate->nextInFocusChain() : candidate->previousInFocusChain();
        if (isAncestorOf(candidate) && (candidate->focusPolicy() & Qt::TabFocus) != 0 &&
            candidate->isEnabled() && candidate->isVisible()) {
            candidate->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    } while (candidate != start);
    return false;
}

bool Sheet::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest)
        place();
    if (!isInput(event->type()))
        return QWidget::event(event);
    event->accept(); // instead of what lies behind
    return true;
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
        place();
    }
    return false;
}

void Sheet::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (QPushButton* const button = defaultButton())
            button->click();
    }
}

void Sheet::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    hide(); // before the focus goes, which would come back
    // What had it may be hidden or disabled by now; the window knows where it goes then.
    const bool canHaveIt =
        m_focusBefore && m_focusBefore->isVisible() && m_focusBefore->isEnabled();
    QWidget* const next = canHaveIt ? m_focusBefore.data() : window();
    next->setFocus(Qt::OtherFocusReason);
}

void Sheet::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    const QRect sheet = m_content->geometry();
    if (m_shadow.sheet != sheet.size() || m_shadow.isDark != m_theme.isDark())
        m_shadow = SheetShadow::of(sheet.size(), m_theme.isDark());
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.colours().scrim);
    painter.drawImage(sheet.topLeft() - QPoint(m_shadow.margin, m_shadow.margin), m_shadow.picture);
    painting::fillRounded(painter, sheet, metrics::sheetRadius, m_theme.colours().window);
    if (m_theme.isDark()) // where a shadow alone makes no edge
        painting::strokeInside(painter, sheet, metrics::sheetRadius, m_theme.colours().separator,
                               metrics::hairline);
}

} // namespace veridane::ui
