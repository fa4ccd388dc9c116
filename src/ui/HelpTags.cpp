#include "ui/HelpTags.h"

#include "ui/Text.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace veridane::ui {

HelpTags::HelpTags(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool HelpTags::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->toolTip().isEmpty())
        return false;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), helpTag(widget->toolTip()),
                       widget);
    return true;
}

} // namespace veridane::ui
