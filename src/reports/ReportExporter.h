#pragma once

#include "model/ScanItem.h"
#include "platform/Date.h"
#include "platform/Locale.h"

#include <optional>
#include <span>
#include <string>

/// A list of items as a file for other programs and people. Labels follow the language in force;
/// everything else in the reports is fixed.
namespace veridane::ReportExporter {

/// When and for whom a report is made.
struct Setting {
    Date date = now();
    std::string locale = userLocale();
    std::string timeZone; // identifier; empty for the user's
};

/// Cells separated by semicolons, rows by line feeds, none after the last row. UTF-8.
[[nodiscard]] std::string csvReport(std::span<const ScanItem> items);

/// Pretty printed with sorted keys, UTF-8; nothing if it cannot be made.
[[nodiscard]] std::optional<std::string> jsonReport(std::span<const ScanItem> items,
                                                    const Setting& setting = {});

/// Counts, and the objects that depend on Rosetta 2 or do not run, sorted by name. UTF-8.
[[nodiscard]] std::string markdownReport(std::span<const ScanItem> items,
                                         const Setting& setting = {});

} // namespace veridane::ReportExporter
