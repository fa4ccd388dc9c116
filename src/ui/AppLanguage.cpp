#include "ui/AppLanguage.h"

#include "platform/Locale.h"

#include <algorithm>

namespace veridane::ui {

std::string_view rawString(AppLanguage language) {
    switch (language) {
    case AppLanguage::system:
        return "system";
    case AppLanguage::german:
        return "german";
    case AppLanguage::english:
        return "english";
    }
    return {};
}

AppLanguage appLanguageFromRawString(std::string_view text) {
    const auto* const language = std::ranges::find(
        appLanguages, text, [](AppLanguage candidate) { return rawString(candidate); });
    return language == appLanguages.end() ? AppLanguage::system : *language;
}

std::string label(AppLanguage language) {
    switch (language) {
    case AppLanguage::system:
        return localized("System");
    case AppLanguage::german:
        return "Deutsch"; // for those who have ended up in a language that they cannot read
    case AppLanguage::english:
        return "English";
    }
    return {};
}

Language textLanguage(AppLanguage language) {
    switch (language) {
    case AppLanguage::system: {
        const std::string locale = userTextLocale().value_or("");
        return locale == "en" || locale.starts_with("en_") ? Language::english : Language::german;
    }
    case AppLanguage::german:
        return Language::german;
    case AppLanguage::english:
        return Language::english;
    }
    return Language::german;
}

std::string localeIdentifier(AppLanguage language) {
    switch (language) {
    case AppLanguage::system:
        return userLocale();
    case AppLanguage::german:
        return "de";
    case AppLanguage::english:
        return "en";
    }
    return {};
}

} // namespace veridane::ui
