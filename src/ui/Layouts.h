#pragma once

class QHBoxLayout;
class QScrollArea;
class QVBoxLayout;
class QWidget;

namespace veridane::ui {

/// Columns and rows without margins. They belong to the widget, or without one to the layout that
/// they are added to.
[[nodiscard]] QVBoxLayout* makeColumn(QWidget* widget = nullptr, int spacing = 0);
[[nodiscard]] QHBoxLayout* makeRow(QWidget* widget = nullptr, int spacing = 0);

/// Scrolls the content, which becomes its own, up and down; sideways it fits. What lies behind
/// shows through.
[[nodiscard]] QScrollArea* makeScrollArea(QWidget* content);

} // namespace veridane::ui
