#include "ui/ChoiceGroup.h"

#include <QAbstractButton>

namespace veridane::ui {

void ChoiceGroup::choose(const QAbstractButton* chosen) {
    // While it is exclusive, the group takes the check away from no button by itself: that is what
    // buttons do whose choice is kept elsewhere.
    setExclusive(false);
    for (QAbstractButton* button : buttons()) {
        button->setChecked(button == chosen);
        button->setFocusPolicy(button == chosen || !chosen ? Qt::StrongFocus : Qt::ClickFocus);
    }
    setExclusive(true);
}

} // namespace veridane::ui
