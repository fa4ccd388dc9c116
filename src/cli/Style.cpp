#include "cli/Style.h"

#include "platform/Text.h"

#include <algorithm>

namespace veridane::cli {
namespace {

// The first character of UTF-8 text with all its bytes.
std::string_view firstCharacter(std::string_view text) {
    const auto isContinuation = [](char byte) {
        return (byte & 0xC0) == 0x80;
    };
    const auto next = std::ranges::find_if_not(text.substr(1), isContinuation);
    return {text.begin(), next};
}

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

std::string clipped(std::string_view text, std::size_t width) {
    if (text::displayWidth(text) <= width)
        return std::string(text);
    std::size_t used = 1; // the ellipsis
    std::size_t kept = 0; // bytes
    while (kept < text.size()) {
        const std::string_view character = firstCharacter(text.substr(kept));
        used += text::displayWidth(character);
        if (used > width)
            break;
        kept += character.size();
    }
    return std::string(text.substr(0, kept)) + "…";
}

std::string padded(std::string_view text, std::size_t width) {
    std::string result(text);
    const std::size_t used = text::displayWidth(text);
    if (used < width)
        result.append(width - used, ' ');
    return result;
}

} // namespace veridane::cli
