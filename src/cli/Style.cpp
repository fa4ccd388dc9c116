#include "cli/Style.h"

#include "platform/Text.h"

namespace veridane::cli {
namespace {

std::string_view colourOf(Urgency urgency) {
    switch (urgency) {
    case Urgency::breaksOnMacOS28:
        return "31"; // red
    case Urgency::partiallyAffected:
        return "33"; // yellow, the nearest to orange that every terminal has
    case Urgency::switchToNative:
        return "34"; // blue
    case Urgency::ready:
        return "32"; // green
    case Urgency::alreadyBroken:
    case Urgency::unknown:
        return "90"; // gray
    }
    return "0";
}

} // namespace

std::string Style::inColourOf(Urgency urgency, std::string_view text) const {
    return wrapped(colourOf(urgency), text);
}

std::string Style::wrapped(std::string_view sequence, std::string_view text) const {
    if (!m_coloured)
        return std::string(text);
    return "\x1b[" + std::string(sequence) + "m" + std::string(text) + "\x1b[0m";
}

std::string padded(std::string_view text, std::size_t width) {
    std::string result(text);
    const std::size_t used = text::displayWidth(text);
    if (used < width)
        result.append(width - used, ' ');
    return result;
}

} // namespace veridane::cli
