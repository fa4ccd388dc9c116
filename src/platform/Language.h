#pragma once

#include <array>
#include <string>
#include <string_view>

namespace veridane {

enum class Language { german, english };
inline constexpr std::array languages = {Language::german, Language::english};

/// Its code by ISO 639, such as "de".
[[nodiscard]] std::string_view languageCode(Language language);

/// The language of every fixed text from now on. The one piece of state that the whole process
/// shares; safe on any thread.
void setLanguage(Language language);
[[nodiscard]] Language language();

/// The German text in the language in force; the German text itself where the table has no entry.
[[nodiscard]] std::string localized(std::string_view german);

/// The same, with `value` in place of the first "%@".
[[nodiscard]] std::string localized(std::string_view german, std::string_view value);

} // namespace veridane
