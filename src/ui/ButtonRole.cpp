#include "ui/ButtonRole.h"

#include <QAbstractButton>
#include <QVariant>

namespace veridane::ui {
namespace {

constexpr const char* property = "role";

} // namespace

void setButtonRole(QAbstractButton& button, ButtonRole role) {
    button.setProperty(property, static_cast<int>(role));
}

ButtonRole buttonRole(const QWidget* button) {
    if (!button)
        return ButtonRole::bordered;
    return static_cast<ButtonRole>(button->property(property).toInt());
}

} // namespace veridane::ui
