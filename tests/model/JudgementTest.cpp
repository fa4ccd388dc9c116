#include "model/NativeCounterparts.h"
#include "model/Recommendation.h"
#include "platform/Language.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

using enum CPUArch;

TEST(ArchitectureReport, OneNativeSliceDecidesThenOneOf64BitIntel) {
    const struct {
        ArchitectureReport report;
        std::string_view status, summary;
    } cases[] = {
        {{{x86_64, arm64}, true}, "native", "x86_64 + arm64"},
        {{{arm64e}, true}, "native", "arm64e"},
        {{{x86_64, i386}, true}, "needsRosetta", "x86_64 + i386"},
        {{{CPUArch::unknown, x86_64}, true}, "needsRosetta", "unknown + x86_64"},
        {{{i386, ppc, ppc64}, true}, "incompatible", "i386 + ppc + ppc64"},
        {{{arm}, true}, "incompatible", "arm"},
        {{{}, true}, "unknown", "keine Slices"},
        {{{arm64}, false}, "unknown", "—"},
        {emptyReport, "unknown", "—"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.summary);
        EXPECT_EQ(rawString(c.report.compatibilityStatus()), c.status);
        EXPECT_EQ(c.report.summaryText(), c.summary);
    }
}

TEST(Recommendation, AFlagCountsOnlyForTheStatusThatItIsAbout) {
    constexpr std::string_view byStatusAndFlags[compatibilityStatusCount][4] = {
        {"ready", "ready", "partiallyAffected", "partiallyAffected"},
        {"breaksOnMacOS28", "switchToNative", "breaksOnMacOS28", "switchToNative"},
        {"alreadyBroken", "alreadyBroken", "alreadyBroken", "alreadyBroken"},
        {"unknown", "unknown", "unknown", "unknown"},
    };
    for (std::size_t status = 0; status < compatibilityStatusCount; ++status)
        for (std::size_t flags = 0; flags < 4; ++flags)
            EXPECT_EQ(caseName(urgencyOf(static_cast<CompatibilityStatus>(status), (flags & 2) != 0,
                                         (flags & 1) != 0)),
                      byStatusAndFlags[status][flags])
                << status << ' ' << flags;
}

TEST(Recommendation, OnlyTheTwoMostUrgentClassesAskForAction) {
    for (int value = -1; value <= 6; ++value) {
        const auto urgency = urgencyFromRawValue(value);
        EXPECT_EQ(urgency.has_value(), value >= 0 && value < 6) << value;
        EXPECT_EQ(urgency && needsAttention(*urgency), value == 0 || value == 1) << value;
    }
}

TEST(Recommendation, SpeaksTheLanguageInForce) {
    setLanguage(Language::english);
    const Recommendation english(CompatibilityStatus::incompatible, false, false);
    const std::string label = displayName(UpdateCheckResult::updateAvailable("2.0"));
    setLanguage(Language::german);
    const Recommendation german(CompatibilityStatus::incompatible, false, false);
    EXPECT_EQ(english.verdict, "Doesn’t run on this Mac even today");
    EXPECT_TRUE(english.advice.starts_with("Exists only as 32-bit Intel or PowerPC – it doesn’t"));
    EXPECT_EQ(label, "Update available → 2.0");
    EXPECT_EQ(german.verdict, "Läuft schon heute nicht auf diesem Mac");
    EXPECT_TRUE(german.advice.ends_with("die App ist auf diesem Mac nicht nutzbar."));
}

ScanItem item(std::string name, CompatibilityStatus status, const char* identifier = nullptr,
              ItemKind kind = ItemKind::application) {
    ScanItem item;
    item.name = std::move(name);
    item.status = status;
    item.kind = kind;
    if (identifier)
        item.bundleIdentifier = identifier;
    return item;
}

TEST(NativeCounterparts, PairByIdentifierOrByNameAndKind) {
    using enum CompatibilityStatus;
    ScanItem items[] = {
        item("Tool 8", needsRosetta, "com.acme.tool"),
        item("Tool 9", native, "com.acme.tool"),
        item("ÄPFEL", needsRosetta),
        item("äpfel", native, "com.acme.apples"),
        item("Cased", needsRosetta, "com.acme.Case"),
        item("Other case", native, "com.acme.case"),
        item("Helper", needsRosetta, nullptr, ItemKind::launchService),
        item("Helper", native, nullptr, ItemKind::application),
        item("Old", needsRosetta, "com.acme.old"),
        item("Old", incompatible, "com.acme.old"),
        item("Kept", native),
        item("Kept", incompatible),
    };
    items[8].intelComponents = {"Contents/Helpers/a"};
    const NativeCounterparts counterparts(items);

    EXPECT_EQ(counterparts.keys(),
              (std::set<std::string, std::less<>>{"bid:com.acme.tool", "nk:äpfel|application"}));
    EXPECT_EQ(urgencyOf(items[0], counterparts), Urgency::switchToNative);
    EXPECT_EQ(urgencyOf(items[1], counterparts), Urgency::ready);
    EXPECT_EQ(urgencyOf(items[2], counterparts), Urgency::switchToNative);
    EXPECT_EQ(urgencyOf(items[6], counterparts), Urgency::breaksOnMacOS28);
    EXPECT_EQ(urgencyOf(items[8], counterparts), Urgency::breaksOnMacOS28);
}

} // namespace
} // namespace veridane
