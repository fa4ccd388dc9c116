#pragma once

#include <QButtonGroup>

namespace veridane::ui {

/// Checkable buttons of which one is the active choice. To the keyboard they are one stop, in which
/// the arrow keys choose. The choice is kept elsewhere: a press changes nothing before `choose`.
class ChoiceGroup : public QButtonGroup {
    Q_OBJECT

public:
    using QButtonGroup::QButtonGroup;

    /// Checks that button and no other one; none at all without one.
    void choose(const QAbstractButton* chosen);
};

} // namespace veridane::ui
