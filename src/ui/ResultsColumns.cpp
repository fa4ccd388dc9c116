#include "ui/ResultsColumns.h"

#include <algorithm>
#include <charconv>

namespace veridane::ui::ResultsColumns {
namespace {

constexpr int nameShare = 40; // percent of what is left above the ideals
constexpr auto nameColumn = static_cast<std::size_t>(ResultsColumn::name);
constexpr auto assessmentColumn = static_cast<std::size_t>(ResultsColumn::assessment);

} // namespace

PerColumn<int> widths(int available, const Dragged& dragged,
                      const PerColumn<ColumnLimits>& limits) {
    PerColumn<int> result{};
    PerColumn<int> lacks{};
    int left = available;
    int lack = 0;
    for (std::size_t i = 0; i < resultsColumnCount; ++i) {
        result[i] = std::max(dragged[i].value_or(0), limits[i].minimum);
        lacks[i] = dragged[i] ? 0 : limits[i].ideal - limits[i].minimum;
        left -= result[i];
        lack += lacks[i];
    }
    if (left <= 0)
        return result;

    // The ends of the shares are rounded, and not the shares, so that no pixel is lost.
    const int shared = std::min(left, lack);
    int lackSoFar = 0;
    int given = 0;
    for (std::size_t i = 0; i < resultsColumnCount && lack > 0; ++i) {
        lackSoFar += lacks[i];
        const int end = static_cast<int>(std::int64_t{shared} * lackSoFar / lack);
        result[i] += end - given;
        given = end;
    }
    left -= shared;

    if (dragged[nameColumn] && dragged[assessmentColumn])
        return result;
    int nameGets = left * nameShare / 100;
    if (dragged[nameColumn])
        nameGets = 0;
    if (dragged[assessmentColumn])
        nameGets = left;
    result[nameColumn] += nameGets;
    result[assessmentColumn] += left - nameGets;
    return result;
}

std::string encoded(const Dragged& dragged) {
    std::string text;
    for (const auto& width : dragged) {
        if (!text.empty())
            text += ' ';
        text += std::to_string(width.value_or(0));
    }
    return text;
}

Dragged decoded(std::string_view text) {
    Dragged result;
    for (std::size_t i = 0; i < resultsColumnCount; ++i) {
        if (i > 0 && !text.starts_with(' '))
            return {};
        text.remove_prefix(i > 0 ? 1 : 0);
        int width = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), width);
        if (error != std::errc())
            return {};
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        const auto [minimum, ideal] = resultsColumnLimits[i];
        if (minimum < ideal && width >= minimum && width <= maxColumnWidth)
            result[i] = width;
    }
    return text.empty() ? result : Dragged();
}

} // namespace veridane::ui::ResultsColumns
