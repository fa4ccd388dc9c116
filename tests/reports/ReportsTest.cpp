#include "reports/ReportExporter.h"
#include "support/ItemSamples.h"

#include <gtest/gtest.h>

namespace veridane::ReportExporter {
namespace {

const std::string csvHeader =
    "Name;Art;Status;Architektur;VersteckteRosettaHelfer;Hersteller;TeamID;Version;Build;Kategorie;"
    "UpdateQuelle;UpdateErgebnis;Pfad";

ScanItem item(const std::string& name, const std::vector<CPUArch>& architectures,
              std::vector<std::string> components = {}) {
    const ArchitectureReport report{architectures, !architectures.empty()};
    ScanItem item = test::sampleItem(name, report.compatibilityStatus());
    item.architecture = report;
    item.intelComponents = std::move(components);
    return item;
}

std::vector<ScanItem> sampleItems() {
    ScanItem full = item("A \"B\"", {CPUArch::x86_64}, {"Contents/a"});
    full.bundleIdentifier = "com.acme.a";
    full.version = "1;2";
    full.buildNumber = "7";
    full.vendor = "Acme\nGmbH";
    full.teamIdentifier = "T1";
    full.categoryDescription = "Spiele, Ä";
    full.sizeOnDisk = 1234567890123;
    full.updateSource = UpdateSource::sparkle;
    full.updateResult = UpdateCheckResult::checking();
    using enum CPUArch;
    const ScanItem wrapper = item("zebra", {}), half = item("Halb", {arm64, x86_64}, {"b", "c"}),
                   umlaut = item("Äpfel", {x86_64}), lower = item("apfel", {x86_64, i386}),
                   upper = item("Apfel", {x86_64}), old = item("Alt", {ppc});
    return {full, wrapper, half, umlaut, lower, upper, old};
}

const Setting setting{*parseISO8601("2027-03-01T22:30:00Z"), "de_DE", "Asia/Tokyo"};

TEST(CsvReport, QuotesACellOnlyForSeparatorsQuotesAndLineFeeds) {
    const auto items = sampleItems();
    EXPECT_EQ(csvReport(std::span(items).first(2)),
              csvHeader +
                  "\n\"A \"\"B\"\"\";Programme;Benötigt Rosetta;x86_64;1;\"Acme\nGmbH\";T1;\"1;2\";"
                  "7;Spiele, Ä;Sparkle (Auto-Update);Prüfe …;\"/Applications/A \"\"B\"\".app\""
                  "\nzebra;Programme;Unbekannt;—;;;;;;;Unbekannt;—;/Applications/zebra.app");
    EXPECT_EQ(csvReport({}), csvHeader);
}

TEST(JsonReport, WritesWhatIsMissingEmptyOrSpecialInItsOwnForm) {
    ScanItem item = sampleItems().front();
    item.bundleIdentifier = std::nullopt;
    item.intelComponents.clear();
    const std::string report = jsonReport({&item, 1}, setting).value();
    EXPECT_TRUE(report.starts_with("{\n  \"generatedAt\" : \"2027-03-01T22:30:00Z\",\n"));
    for (const char* line : {R"("bundleIdentifier" : null,)", R"("intelComponents" : [],)",
                             R"("path" : "\/Applications\/A \"B\".app",)",
                             R"("sizeBytes" : 1234567890123,)", R"("vendor" : "Acme\nGmbH",)"})
        EXPECT_NE(report.find(std::string("\n      ") + line + "\n"), std::string::npos) << line;
    item.name = "\xFF";
    EXPECT_EQ(jsonReport({&item, 1}, setting), std::nullopt) << "text that is no UTF-8";
}

TEST(MarkdownReport, SortsEachSectionByNameAndLeavesEmptyOnesOut) {
    const auto items = sampleItems();
    EXPECT_EQ(markdownReport(items, setting), R"(# Veridane-Bericht

Erstellt am 02.03.2027, 07:30

- Gescannte Objekte: **7**
- Benötigen Rosetta: **4**
- Nicht lauffähig (32-Bit/PPC): **1**
- Native Apps mit versteckten Rosetta-Helfern: **1**

## Benötigen Rosetta 2

- **A "B"** — Acme
GmbH (x86_64)
- **apfel** (x86_64 + i386)
- **Apfel** (x86_64)
- **Äpfel** (x86_64)

## Nicht lauffähig auf Apple Silicon

- **Alt** (ppc)

## Versteckte Rosetta-Abhängigkeiten

- **Halb** (arm64 + x86_64)

)");
    EXPECT_TRUE(markdownReport({}, setting).ends_with("Rosetta-Helfern: **0**\n\n"));
}

} // namespace
} // namespace veridane::ReportExporter
