#pragma once

#include "platform/Language.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace veridane::ui {

/// The language of the windows, as the user chose it.
enum class AppLanguage : std::uint8_t { system, german, english };
inline constexpr std::array appLanguages = {AppLanguage::system, AppLanguage::german,
                                            AppLanguage::english};

/// The form that is stored.
[[nodiscard]] std::string_view rawString(AppLanguage language);

/// Any text that names no language means the system's.
[[nodiscard]] AppLanguage appLanguageFromRawString(std::string_view text);

/// "System" in the language in force; the others name themselves.
[[nodiscard]] std::string label(AppLanguage language);

/// The locale whose dates, numbers and order of names go with it: "de", "en", or the user's own.
[[nodiscard]] std::string localeIdentifier(AppLanguage language);

/// The language of the texts that goes with it. A system in neither language shows German.
[[nodiscard]] Language textLanguage(AppLanguage language);

} // namespace veridane::ui
