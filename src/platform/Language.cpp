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

const Table& english() {
    static const Table table = parsedTable(englishTable);
    return table;
}

} // namespace

void setLanguage(Language language) {
    languageInForce = language;
}

Language language() {
    return languageInForce;
}

std::string localized(std::string_view german) {
    if (language() == Language::english) {
        const auto entry = english().find(german);
        if (entry != english().end())
            return entry->second;
    }
    return std::string(german);
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
