#include "cli/ProgressBar.h"

#include <algorithm>
#include <string>

namespace veridane::cli {
namespace {

constexpr std::int64_t cells = 24;
constexpr const char* eraseLine = "\r\x1b[K";

std::string repeated(std::string_view text, std::int64_t times) {
    std::string result;
    for (std::int64_t i = 0; i < times; ++i)
        result += text;
    return result;
}

} // namespace

ProgressBar::~ProgressBar() {
    if (m_isShown)
        m_terminal << eraseLine << std::flush;
}

void ProgressBar::show(const ScanProgress& progress) {
    const std::int64_t total = std::max<std::int64_t>(progress.total, 1);
    const std::int64_t filled =
        std::clamp<std::int64_t>(progress.completed * cells / total, 0, cells);
    m_terminal << eraseLine << repeated("█", filled) << repeated("░", cells - filled) << ' '
               << progress.completed << '/' << progress.total << "  " << progress.phase
               << std::flush;
    m_isShown = true;
}

} // namespace veridane::cli
