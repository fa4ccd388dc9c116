#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veridane::ui {

/// The columns of the table, in their order.
enum class ResultsColumn : std::uint8_t { name, assessment, architecture, vendor, version, update };
inline constexpr std::size_t resultsColumnCount = 6;

template <typename T>
using PerColumn = std::array<T, resultsColumnCount>;

/// Widths in logical pixels; a column whose two are equal has a fixed width.
struct ColumnLimits {
    int minimum = 0;
    int ideal = 0;
};
inline constexpr PerColumn<ColumnLimits> resultsColumnLimits = {
    {{180, 240}, {230, 290}, {120, 150}, {100, 150}, {80, 80}, {120, 160}}};
inline constexpr int maxColumnWidth = 4000; // more than any screen shows of one column

/// How the columns of the table share its width.
namespace ResultsColumns {

/// The widths that the user has given to columns by dragging.
using Dragged = PerColumn<std::optional<int>>;

/// Widths that fill `available`, if the minima fit in and not all columns that could grow are
/// dragged. What is left above the minima is shared up to the ideals, in proportion to what each
/// column lacks; what is left then goes to the name and the assessment. A dragged column keeps its
/// width, but is never narrower than its minimum.
[[nodiscard]] PerColumn<int> widths(int available, const Dragged& dragged,
                                    const PerColumn<ColumnLimits>& limits = resultsColumnLimits);

/// The form that is stored: a number for each column, 0 for one that is not dragged.
[[nodiscard]] std::string encoded(const Dragged& dragged);

/// Nothing is dragged in a text of any other form. Widths out of bounds do not count.
[[nodiscard]] Dragged decoded(std::string_view text);

} // namespace ResultsColumns
} // namespace veridane::ui
