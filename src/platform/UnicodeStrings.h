#pragma once

#include <unicode/unistr.h>

#include <string>
#include <string_view>

/// Between UTF-8 and the strings of ICU, for the sources of this folder alone. Safe on any thread.
namespace veridane::unicode {

/// Bad sequences are U+FFFD in the result, as Unicode recommends.
[[nodiscard]] inline icu::UnicodeString decoded(std::string_view bytes) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(bytes.data(), static_cast<int32_t>(bytes.size())));
}

[[nodiscard]] inline std::string encoded(const icu::UnicodeString& text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

} // namespace veridane::unicode
