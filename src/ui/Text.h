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

/// The text as a help tag that breaks its lines and takes no character for markup. Only for what
/// shows it: widgets and models keep the plain text, which assistive technology reads.
[[nodiscard]] inline QString helpTag(const QString& text) {
    return QLatin1String("<qt>") + text.toHtmlEscaped() + QLatin1String("</qt>");
}

} // namespace veridane::ui
