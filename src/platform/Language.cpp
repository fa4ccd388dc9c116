#include "platform/Language.h"

#include <nlohmann/json.hpp>

#include <atomic>
#include <functional>
#include <map>

namespace veridane {

// From resources/languages/en.json, embedded when building.
extern const std::string_view englishTable;

namespace {

using Table = std::map<std::string, std::string, std::less<>>;

std::atomic<Language> languageInForce{Language::german};

Table parsedTable(std::string_view text) {
    Table table;
    const auto json = nlohmann::json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!json.is_object())
        return table;
    for (const auto& [german, english] : json.items()) {
        if (english.is_string())
            table.emplace(german, english.get<std::string>());
    }
    return table;
}

const Table& tableOf(Language language) {
    static const Table none; // the texts are German where they are used
    static const Table english = parsedTable(englishTable);
    switch (language) {
    case Language::german:
        return none;
    case Language::english:
        return english;
    }
    return none;
}

} // namespace

std::string_view languageCode(Language language) {
    switch (language) {
    case Language::german:
        return "de";
    case Language::english:
        return "en";
    }
    return {};
}

void setLanguage(Language language) {
    languageInForce = language;
}

Language language() {
    return languageInForce;
}

std::string localized(std::string_view german) {
    const Table& table = tableOf(language());
    const auto entry = table.find(german);
    return entry == table.end() ? std::string(german) : entry->second;
}

std::string localized(std::string_view german, std::string_view value) {
    constexpr std::string_view placeholder = "%@";
    std::string text = localized(german);
    const auto position = text.find(placeholder);
    if (position != std::string::npos)
        text.replace(position, placeholder.size(), value);
    return text;
}

} // namespace veridane
