#include "ui/ButtonRole.h"

#include "ui/Text.h"

#include <QAbstractButton>
#include <QVariant>

namespace veridane::ui {
namespace {

constexpr const char* roleProperty = "role";
constexpr const char* symbolProperty = "symbol";

} // namespace

void setButtonRole(QAbstractButton& button, ButtonRole role) {
    button.setProperty(roleProperty, static_cast<int>(role));
}

ButtonRole buttonRole(const QWidget* button) {
    if (!button)
        return ButtonRole::bordered;
    return static_cast<ButtonRole>(button->property(roleProperty).toInt());
}

void setButtonSymbol(QAbstractButton& button, std::string_view name) {
    button.setProperty(symbolProperty, toQString(name));
}

std::string buttonSymbol(const QWidget* button) {
    return button ? button->property(symbolProperty).toString().toStdString() : std::string();
}

} // namespace veridane::ui
