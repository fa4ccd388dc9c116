#pragma once

#include <QObject>

namespace veridane::ui {

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
