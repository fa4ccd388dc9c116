#include "cli/InspectionText.h"

#include "cli/Style.h"
#include "model/NativeCounterparts.h"
#include "model/Recommendation.h"
#include "platform/Language.h"
#include "platform/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace veridane::cli {
namespace {

constexpr std::size_t textWidth = 78; // columns of a paragraph

// Each object is judged by itself: what else is installed is not known here.
Recommendation judge(const ScanItem& item) {
    return recommendationFor(item, NativeCounterparts());
}

std::string paragraph(std::string_view text) {
    std::string result;
    std::size_t column = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        const std::size_t width = text::displayWidth(word);
        if (column == 0 || column + 1 + width > textWidth) {
            result += column == 0 ? "  " : "\n  ";
            column = 2 + width;
        } else {
            result += ' ';
            column += 1 + width;
        }
        result += word;
    }
    return result + "\n";
}

std::string block(const ScanItem& item, const Style& style) {
    const Recommendation recommendation = judge(item);
    const std::vector<std::pair<std::string, std::string>> facts = {
        {localized("Einschätzung"), recommendation.verdict},
        {localized("Dringlichkeit"), displayName(recommendation.urgency)},
        {localized("Status"), displayName(item.status)},
        {localized("Architektur"), item.architecture.summaryText()},
        {localized("Hersteller"), item.vendor.value_or("—")},
        {localized("Team-ID"), item.teamIdentifier.value_or("—")},
        {localized("Quelle"), displayName(item.updateSource)},
    };
    std::size_t width = 0;
    for (const auto& [label, value] : facts)
        width = std::max(width, text::displayWidth(label));
    std::string text = style.bold(text::printable(item.path)) + "\n";
    for (const auto& [label, value] : facts) {
        text += "  " + style.dim(padded(label, width)) + "  ";
        text += label == facts.front().first
                    ? style.inColourOf(recommendation.urgency, text::printable(value))
                    : text::printable(value);
        text += '\n';
    }
    text += "\n" + paragraph(recommendation.advice);
    if (item.intelComponents.empty())
        return text;
    text += "\n  " +
            style.bold(localized("Eingebettete Intel-Komponenten (%@)",
                                 std::to_string(item.intelComponents.size()))) +
            "\n";
    for (const std::string& component : item.intelComponents)
        text += "    " + text::printable(component) + "\n";
    return text;
}

nlohmann::ordered_json valueOrNull(const std::optional<std::string>& text) {
    return text ? nlohmann::ordered_json(*text) : nlohmann::ordered_json();
}

nlohmann::ordered_json object(const ScanItem& item) {
    const Recommendation recommendation = judge(item);
    auto architectures = nlohmann::ordered_json::array();
    for (const CPUArch architecture : item.architecture.architectures)
        architectures.push_back(rawString(architecture));
    return {
        {"path", item.path},
        {"isMachO", item.architecture.isMachO},
        {"architectures", std::move(architectures)},
        {"status", rawString(item.status)},
        {"intelComponents", item.intelComponents},
        {"urgency", caseName(recommendation.urgency)},
        {"verdict", recommendation.verdict},
        {"advice", recommendation.advice},
        {"vendor", valueOrNull(item.vendor)},
        {"teamIdentifier", valueOrNull(item.teamIdentifier)},
        {"updateSource", rawString(item.updateSource)},
    };
}

} // namespace

std::string inspectionText(std::span<const ScanItem> items, bool coloured) {
    const Style style(coloured);
    std::string text;
    for (const ScanItem& item : items)
        text += (text.empty() ? "" : "\n") + block(item, style);
    return text;
}

std::string inspectionJson(std::span<const ScanItem> items) {
    auto array = nlohmann::ordered_json::array();
    for (const ScanItem& item : items)
        array.push_back(object(item));
    return array.dump(2) + "\n";
}

} // namespace veridane::cli
