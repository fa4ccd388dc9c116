#pragma once

#include <QObject>
#include <QString>

namespace veridane::ui {

/// The text as a help tag that breaks its lines and takes no character for markup. Only for what
/// shows it: widgets and models keep the plain text, which assistive technology reads.
[[nodiscard]] QString helpTag(const QString& text);

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
