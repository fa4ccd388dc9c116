#include "cli/ScanSummary.h"

#include "cli/Style.h"
#include "model/NativeCounterparts.h"
#include "model/Recommendation.h"
#include "platform/Language.h"
#include "platform/Locale.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

namespace veridane::cli {
namespace {

constexpr std::size_t columnCount = 4;
constexpr std::size_t widestCell = 36; // one long name must not push every path out of sight
using Row = std::array<std::string, columnCount>;

struct Judged {
    Urgency urgency;
    std::string nameKey;
    const ScanItem* item;
};

std::vector<Judged> judge(std::span<const ScanItem> items) {
    const NativeCounterparts counterparts(items);
    const Collation collation;
    std::vector<Judged> judged;
    judged.reserve(items.size());
    for (const ScanItem& item : items)
        judged.push_back({urgencyOf(item, counterparts), collation.key(item.name), &item});
    std::ranges::stable_sort(judged, [](const Judged& a, const Judged& b) {
        return std::tie(a.urgency, a.nameKey) < std::tie(b.urgency, b.nameKey);
    });
    return judged;
}

Row rowOf(const ScanItem& item) {
    return {text::printable(item.name), item.architecture.summaryText(),
            text::printable(item.vendor.value_or("—")), text::printable(item.path)};
}

// Of all columns but the last, which nothing stands behind.
std::array<std::size_t, columnCount - 1> widthsOf(const std::vector<Row>& rows) {
    std::array<std::size_t, columnCount - 1> widths{};
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], std::min(widestCell, text::displayWidth(row[i])));
    }
    return widths;
}

std::string cell(std::string_view text, std::size_t width) {
    return padded(clipped(text, width), width);
}

std::string counts(const std::vector<Judged>& judged, const Style& style) {
    constexpr std::size_t numberWidth = 6;
    std::string text;
    for (int value = 0; value < urgencyCount; ++value) {
        const Urgency urgency = *urgencyFromRawValue(value);
        const auto count = std::ranges::count(judged, urgency, &Judged::urgency);
        const std::string number = std::to_string(count);
        const std::size_t room = numberWidth - std::min(numberWidth, number.size());
        text += "  " + std::string(room, ' ') + number + "  ";
        text += count > 0 ? style.inColourOf(urgency, "● " + displayName(urgency))
                          : style.dim("○ " + displayName(urgency));
        text += '\n';
    }
    return text;
}

std::string groupsOf(std::span<const Judged> needy, const Style& style) {
    std::vector<Row> rows;
    for (const Judged& judged : needy)
        rows.push_back(rowOf(*judged.item));
    const auto widths = widthsOf(rows);
    std::string text;
    for (std::size_t i = 0; i < needy.size(); ++i) {
        const Urgency urgency = needy[i].urgency;
        if (i == 0 || urgency != needy[i - 1].urgency) {
            const Recommendation recommendation(needy[i].item->status,
                                                needy[i].item->hasHiddenRosettaDependency(), false);
            text += "\n" + style.inColourOf(urgency, "● " + recommendation.verdict) + "\n";
        }
        text += "  " + style.bold(cell(rows[i][0], widths[0]));
        text += "  " + cell(rows[i][1], widths[1]);
        text += "  " + cell(rows[i][2], widths[2]);
        text += "  " + style.dim(rows[i][3]) + "\n";
    }
    return text;
}

bool isWorthTelling(const UpdateCheckResult& result) {
    return result.kind == UpdateCheckResult::Case::updateAvailable ||
           result.kind == UpdateCheckResult::Case::failed;
}

/// What there is to get, and what could not be asked; nothing where no check has been made.
std::string updatesOf(const std::vector<Judged>& judged, const Style& style) {
    constexpr std::size_t resultWidth = 200; // a feed may call its version as long as it likes
    std::string text;
    for (const Judged& entry : judged) {
        if (!isWorthTelling(entry.item->updateResult))
            continue;
        text += "  " + style.bold(cell(text::printable(entry.item->name), widestCell)) + "  " +
                clipped(text::printable(displayName(entry.item->updateResult)), resultWidth) + "\n";
    }
    return text.empty() ? text : "\n" + style.bold(localized("Updates")) + "\n" + text;
}

std::string attentionOf(std::span<const Judged> needy, const Style& style) {
    if (needy.empty())
        return localized("Bereit – keine App ist auf Rosetta angewiesen.") + "\n";
    return style.bold(localized("Handlungsbedarf") + ": " + std::to_string(needy.size())) + "\n" +
           groupsOf(needy, style);
}

} // namespace

std::string scanSummary(std::span<const ScanItem> items, bool coloured) {
    const Style style(coloured);
    const std::vector<Judged> judged = judge(items);
    const auto firstCalm = std::ranges::find_if_not(judged, needsAttention, &Judged::urgency);
    const std::span needy(judged.begin(), firstCalm);

    std::string text =
        style.bold(localized("Geprüfte Objekte: %@", std::to_string(items.size()))) + "\n\n";
    text += counts(judged, style) + "\n";
    if (items.empty())
        return text + localized("Nichts gefunden, was sich prüfen ließe.") + "\n";
    return text + attentionOf(needy, style) + updatesOf(judged, style);
}

} // namespace veridane::cli
