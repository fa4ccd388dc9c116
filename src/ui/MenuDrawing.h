#pragma once

#include <QSize>

class QPainter;
class QRect;
class QStyleOptionMenuItem;

namespace veridane::ui {
class Theme;
}

/// How menus, their entries and the titles in the menu bar look.
namespace veridane::ui::MenuDrawing {

void drawPanel(const Theme& theme, const QRect& rect, QPainter& painter);
void drawEntry(const Theme& theme, const QStyleOptionMenuItem& option, QPainter& painter);
[[nodiscard]] QSize entrySize(const Theme& theme, const QStyleOptionMenuItem& option);

void drawTitle(const Theme& theme, const QStyleOptionMenuItem& option, QPainter& painter);
[[nodiscard]] QSize titleSize(const Theme& theme, const QStyleOptionMenuItem& option);

/// Whether what is left out of a menu's corners shows what is behind it.
[[nodiscard]] bool canHaveRoundCorners();

} // namespace veridane::ui::MenuDrawing
