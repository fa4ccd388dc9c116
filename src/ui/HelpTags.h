#pragma once

#include <QObject>
#include <QRect>
#include <QString>

class QHelpEvent;
class QWidget;

namespace veridane::ui {

/// Shows the text where the pointer is, as a help tag that breaks its lines and takes no character
/// for markup, until the pointer leaves `rect`, or the widget without one. An empty text hides it.
void showHelpTag(const QHelpEvent& event, const QString& text, QWidget& widget,
                 const QRect& rect = {});

/// Shows the help tags of all widgets with their lines broken. Widgets keep them as plain text, as
/// assistive technology reads them.
class HelpTags : public QObject {
    Q_OBJECT

public:
    explicit HelpTags(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace veridane::ui
