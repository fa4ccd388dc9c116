#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace veridane::ui {

/// The engine's text, UTF-8, as the toolkit takes it.
[[nodiscard]] inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The same for text in which the toolkit would take a single "&" for the mark of a mnemonic.
[[nodiscard]] inline QString withoutMnemonics(std::string_view text) {
    return toQString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// Text that somebody else has written, as it is shown: without control characters, and cut with
/// an ellipsis where it is longer than anybody reads.
[[nodiscard]] QString shown(std::string_view text);

} // namespace veridane::ui
