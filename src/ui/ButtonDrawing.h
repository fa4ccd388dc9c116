#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionToolButton;
class QWidget;

namespace veridane::ui {
class Theme;
}

/// How buttons look and how large they are, by their role.
namespace veridane::ui::ButtonDrawing {

void drawBevel(const Theme& theme, const QStyleOptionButton& option, QPainter& painter,
               const QWidget* widget);
void drawLabel(const Theme& theme, const QStyleOptionButton& option, QPainter& painter,
               const QWidget* widget);
[[nodiscard]] QSize size(const Theme& theme, const QStyleOptionButton& option,
                         const QWidget* widget);

void drawTool(const Theme& theme, const QStyleOptionToolButton& option, QPainter& painter,
              const QWidget* widget);
[[nodiscard]] QSize toolSize(const Theme& theme, const QStyleOptionToolButton& option);

/// A closed pop-up.
void drawPopUp(const Theme& theme, const QStyleOptionComboBox& option, QPainter& painter);
[[nodiscard]] QSize popUpSize(const Theme& theme, const QSize& text);

} // namespace veridane::ui::ButtonDrawing
