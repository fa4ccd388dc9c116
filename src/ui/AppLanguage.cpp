#include "ui/AppLanguage.h"

#include "model/RawStrings.h"
#include "platform/Locale.h"

namespace veridane::ui {
namespace {

constexpr RawStrings::Table<appLanguages.size()> rawStrings = {"system", "german", "english"};

Language languageOf(std::string_view locale) {
    for (const Language language : languages) {
        if (locale.substr(0, locale.find('_')) == languageCode(language))
            return language;
    }
    return Language::german;
}

} // namespace

std::string_view rawString(AppLanguage language) {
    return RawStrings::textOf(rawStrings, language);
}

AppLanguage appLanguageFromRawString(std::string_view text) {
    return RawStrings::valueOf<AppLanguage>(rawStrings, text).value_or(AppLanguage::system);
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
    case AppLanguage::system:
        return languageOf(userTextLocale().value_or(""));
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
