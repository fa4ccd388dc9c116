#include "model/NativeCounterparts.h"
#include "model/Recommendation.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

using enum CPUArch;

TEST(ArchitectureReport, OneNativeSliceDecidesThenOneOf64BitIntel) {
    const std::tuple<ArchitectureReport, std::string_view, std::string_view> cases[] = {
        {{{x86_64, arm64}, true}, "native", "x86_64 + arm64"},
        {{{arm64e}, true}, "native", "arm64e"},
        {{{x86_64, i386}, true}, "needsRosetta", "x86_64 + i386"},
        {{{i386, ppc, ppc64, arm}, true}, "incompatible", "i386 + ppc + ppc64 + arm"},
        {{{}, true}, "unknown", "keine Slices"},
        {{{arm64}, false}, "unknown", "—"},
    };
    for (const auto& [report, status, summary] : cases) {
        EXPECT_EQ(rawString(report.compatibilityStatus()), status) << summary;
        EXPECT_EQ(report.summaryText(), summary);
    }
}

TEST(Recommendation, AFlagCountsOnlyForTheStatusThatItIsAbout) {
    constexpr std::string_view byStatusAndFlags[][4] = {
        {"ready", "ready", "partiallyAffected", "partiallyAffected"},
        {"breaksOnMacOS28", "switchToNative", "breaksOnMacOS28", "switchToNative"},
        {"alreadyBroken", "alreadyBroken", "alreadyBroken", "alreadyBroken"},
        {"unknown", "unknown", "unknown", "unknown"},
    };
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(caseName(urgencyOf(CompatibilityStatus(i / 4), (i & 2) != 0, (i & 1) != 0)),
                  byStatusAndFlags[i / 4][i % 4]);
}

ScanItem item(std::string name, CompatibilityStatus status,
              std::optional<std::string> identifier = {}, ItemKind kind = ItemKind::application) {
    ScanItem item{.name = std::move(name), .kind = kind, .status = status};
    item.bundleIdentifier = std::move(identifier);
    return item;
}

TEST(NativeCounterparts, PairByIdentifierOrByNameAndKind) {
    using enum CompatibilityStatus;
    const ScanItem items[] = {item("Tool 8", needsRosetta, "com.acme.tool"),
                              item("Tool 9", native, "com.acme.tool"),
                              item("ÄPFEL", needsRosetta, "com.acme.apfel"),
                              item("äpfel", native, "com.acme.apples"),
                              item("Cased", needsRosetta, "com.acme.Case"),
                              item("Other", native, "com.acme.case"),
                              item("Helper", needsRosetta, {}, ItemKind::launchService),
                              item("Helper", native),
                              item("Old", needsRosetta, "com.acme.old"),
                              item("Old", incompatible, "com.acme.old"),
                              item("Kept", native),
                              item("Kept", incompatible),
                              item("Former Name", needsRosetta, ""),
                              item("Present Name", native, "")};
    const NativeCounterparts counterparts(items);
    EXPECT_EQ(counterparts.keys(), (std::set<std::string, std::less<>>{"bid:", "bid:com.acme.tool",
                                                                       "nk:äpfel|application"}));
    EXPECT_EQ(urgencyOf(items[0], counterparts), Urgency::switchToNative);
    EXPECT_EQ(urgencyOf(items[1], counterparts), Urgency::ready);
    EXPECT_EQ(urgencyOf(items[2], counterparts), Urgency::switchToNative);
    EXPECT_EQ(urgencyOf(items[6], counterparts), Urgency::breaksOnMacOS28);
}

} // namespace
} // namespace veridane
