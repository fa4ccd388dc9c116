#include "reports/ReportExporter.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace veridane::ReportExporter {
namespace {

constexpr std::string_view csvHeader =
    "Name;Art;Status;Architektur;VersteckteRosettaHelfer;Hersteller;TeamID;Version;Build;Kategorie;"
    "UpdateQuelle;UpdateErgebnis;Pfad";

std::string quoted(std::string_view cell) {
    if (cell.find_first_of(";\"\n") == std::string_view::npos)
        return std::string(cell);
    std::string text = "\"";
    for (const char character : cell) {
        if (character == '"')
            text += '"';
        text += character;
    }
    return text + '"';
}

std::string csvRow(const ScanItem& item) {
    const auto components = item.intelComponents.size();
    const std::array<std::string, 13> cells = {
        item.name,
        displayName(item.kind),
        displayName(item.status),
        item.architecture.summaryText(),
        components == 0 ? std::string() : std::to_string(components),
        item.vendor.value_or(""),
        item.teamIdentifier.value_or(""),
        item.version.value_or(""),
        item.buildNumber.value_or(""),
        item.categoryDescription.value_or(""),
        displayName(item.updateSource),
        displayName(item.updateResult),
        item.path,
    };
    std::string row = quoted(cells.front());
    for (std::size_t i = 1; i < cells.size(); ++i)
        row += ';' + quoted(cells[i]);
    return row;
}

bool needsRosetta(const ScanItem& item) {
    return item.status == CompatibilityStatus::needsRosetta;
}

bool cannotRun(const ScanItem& item) {
    return item.status == CompatibilityStatus::incompatible;
}

bool hidesDependency(const ScanItem& item) {
    return item.hasHiddenRosettaDependency();
}

std::string bold(std::string_view text) {
    return "**" + std::string(text) + "**";
}

std::string countLine(std::string_view label, std::ptrdiff_t count) {
    return "- " + std::string(label) + ": " + bold(std::to_string(count)) + "\n";
}

std::string itemLine(const ScanItem& item) {
    std::string line = "- " + bold(item.name);
    if (item.vendor)
        line += " — " + *item.vendor;
    return line + " (" + item.architecture.summaryText() + ")\n";
}

/// The items that match, sorted by name; nothing at all where none does.
template <typename Predicate>
std::string section(std::string_view title, std::span<const ScanItem> items, Predicate matches,
                    const Collation& collation) {
    std::vector<std::pair<std::string, const ScanItem*>> rows;
    for (const ScanItem& item : items)
        if (matches(item))
            rows.push_back({collation.key(item.name), &item});
    if (rows.empty())
        return {};
    std::ranges::stable_sort(rows, {}, &decltype(rows)::value_type::first);

    std::string text = "## " + std::string(title) + "\n\n";
    for (const auto& [key, item] : rows)
        text += itemLine(*item);
    return text + "\n";
}

} // namespace

std::string csvReport(std::span<const ScanItem> items) {
    std::string text(csvHeader);
    for (const ScanItem& item : items)
        text += '\n' + csvRow(item);
    return text;
}

std::string markdownReport(std::span<const ScanItem> items, const Setting& setting) {
    std::string text = "# Veridane-Bericht\n\n";
    text +=
        "Erstellt am " + formatDateTime(setting.date, setting.locale, setting.timeZone) + "\n\n";
    text += countLine("Gescannte Objekte", std::ssize(items));
    text += countLine("Benötigen Rosetta", std::ranges::count_if(items, needsRosetta));
    text += countLine("Nicht lauffähig (32-Bit/PPC)", std::ranges::count_if(items, cannotRun));
    text += countLine("Native Apps mit versteckten Rosetta-Helfern",
                      std::ranges::count_if(items, hidesDependency));
    text += '\n';

    const Collation collation(setting.locale);
    text += section("Benötigen Rosetta 2", items, needsRosetta, collation);
    text += section("Nicht lauffähig auf Apple Silicon", items, cannotRun, collation);
    text += section("Versteckte Rosetta-Abhängigkeiten", items, hidesDependency, collation);
    return text;
}

} // namespace veridane::ReportExporter
