#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class QAbstractButton;
class QWidget;

namespace veridane::ui {

/// What a button is for; the style draws and measures it by that.
enum class ButtonRole : std::uint8_t {
    bordered,
    borderedSmall,
    prominent,
    prominentLarge,
    action, // over the full width of its place, symbol and label on the left
    tool    // in the bar: nothing but symbol and label until it is hovered
};

/// Bordered is what a button is without this call.
void setButtonRole(QAbstractButton& button, ButtonRole role);
[[nodiscard]] ButtonRole buttonRole(const QWidget* button);

/// The symbol that stands in front of the label; empty without one.
void setButtonSymbol(QAbstractButton& button, std::string_view name);
[[nodiscard]] std::string buttonSymbol(const QWidget* button);

} // namespace veridane::ui
