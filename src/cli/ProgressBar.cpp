#include "cli/ProgressBar.h"

#include "cli/Style.h"

#include <algorithm>
#include <string>

namespace veridane::cli {
namespace {

constexpr std::size_t mostCells = 24;
constexpr std::size_t fewestColumns = 30; // for a bar at all
constexpr const char* eraseLine = "\r\x1b[K";

std::string repeated(std::string_view text, std::int64_t times) {
    std::string result;
    for (std::int64_t i = 0; i < times; ++i)
        result += text;
    return result;
}

std::string bar(const ScanProgress& progress, std::size_t columns) {
    if (columns < fewestColumns)
        return {};
    const auto cells = static_cast<std::int64_t>(std::min(mostCells, columns / 3));
    const std::int64_t total = std::max<std::int64_t>(progress.total, 1);
    const std::int64_t filled =
        std::clamp<std::int64_t>(progress.completed * cells / total, 0, cells);
    return repeated("█", filled) + repeated("░", cells - filled) + ' ';
}

} // namespace

ProgressBar::~ProgressBar() {
    if (m_isShown)
        m_terminal << eraseLine << std::flush;
}

void ProgressBar::show(const ScanProgress& progress) {
    const std::string line = bar(progress, m_columns) + std::to_string(progress.completed) + '/' +
                             std::to_string(progress.total) + "  " + progress.phase;
    // Some terminals wrap as soon as the last column is filled.
    const std::size_t room = std::max<std::size_t>(m_columns, 2) - 1;
    m_terminal << eraseLine << clipped(line, room) << std::flush;
    m_isShown = true;
}

} // namespace veridane::cli
