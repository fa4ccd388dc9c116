#include "ui/HelpTags.h"

#include "ui/Metrics.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace veridane::ui {
namespace {

// The toolkit would choose a width of its own, and break even short texts.
QString markup(const QString& text) {
    if (text.isEmpty())
        return {};
    const bool fits =
        QFontMetrics(QToolTip::font()).horizontalAdvance(text) <= metrics::helpTagWidth;
    if (fits)
        return QLatin1String("<p style='white-space:pre'>") + text.toHtmlEscaped() +
               QLatin1String("</p>");
    return QStringLiteral("<table cellspacing='0' cellpadding='0' width='%1'><tr><td>")
               .arg(metrics::helpTagWidth) +
           text.toHtmlEscaped() + QLatin1String("</td></tr></table>");
}

} // namespace

void showHelpTag(const QHelpEvent& event, const QString& text, QWidget& widget, const QRect& rect) {
    QToolTip::showText(event.globalPos(), markup(text), &widget, rect);
}

HelpTags::HelpTags(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool HelpTags::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->toolTip().isEmpty())
        return false;
    showHelpTag(*static_cast<QHelpEvent*>(event), widget->toolTip(), *widget);
    return true;
}

} // namespace veridane::ui
