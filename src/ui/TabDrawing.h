#pragma once

#include <QSize>

#include <string_view>

class QPainter;
class QRect;
class QStyleOptionTab;
class QTabBar;
class QWidget;

namespace veridane::ui {
class Theme;
}

/// A strip of tabs, each a symbol above its label, over the full width of what they change.
namespace veridane::ui::TabDrawing {

/// Gives a tab the symbol above its label.
void setSymbol(QTabBar& bar, int tab, std::string_view name);

[[nodiscard]] int stripHeight(const Theme& theme);
[[nodiscard]] QSize size(const Theme& theme, const QStyleOptionTab& option);
void drawTab(const Theme& theme, const QStyleOptionTab& option, QPainter& painter,
             const QWidget* bar);

/// The line between the strip and what is below it, at the top of `rect`.
void drawEdge(const Theme& theme, const QRect& rect, QPainter& painter);

} // namespace veridane::ui::TabDrawing
