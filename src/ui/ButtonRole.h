#pragma once

#include <cstdint>

class QAbstractButton;
class QWidget;

namespace veridane::ui {

/// What a button is for; the style draws and measures it by that.
enum class ButtonRole : std::uint8_t {
    bordered,
    borderedSmall,
    prominent,
    prominentLarge,
    tool // in the bar: nothing but symbol and label until it is hovered
};

/// A property with the name of the symbol that stands in front of the label.
inline constexpr const char* symbolProperty = "symbol";

/// Bordered is what a button is without this call.
void setButtonRole(QAbstractButton& button, ButtonRole role);
[[nodiscard]] ButtonRole buttonRole(const QWidget* button);

} // namespace veridane::ui
