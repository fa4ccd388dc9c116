#include "ui/Text.h"

#include "platform/Text.h"

namespace veridane::ui {
namespace {

// Laying out 64 kilobytes takes a noticeable time, at each change of a column's width.
constexpr qsizetype longestShown = 4096; // UTF-16 units

} // namespace

QString shown(std::string_view text) {
    // Three bytes at most make one unit, so that what is left out here is left out below as well.
    const std::string_view beginning = text.substr(0, 4 * longestShown);
    QString result = toQString(text::printable(beginning));
    if (beginning.size() == text.size() && result.size() <= longestShown)
        return result;
    result.truncate(longestShown);
    if (!result.isEmpty() && result.back().isHighSurrogate())
        result.chop(1);
    return result + QChar(0x2026);
}

} // namespace veridane::ui
