#include "cli/Arguments.h"

#include <gtest/gtest.h>

namespace veridane::cli {
namespace {

TEST(Arguments, EmptyTextIsRefusedRatherThanTakenForTheDefault) {
    const std::vector<std::string> calls[] = {
        {"scan", "--volume", ""},
        {"scan", "--volume="},
        {"scan", "-o", ""},
        {"scan", "--home", ""},
        {"scan", "--include", ""},
        {"scan", "--include", "applications,,extensions"},
        {"inspect", "--volume", "", "x"},
        {"inspect", "x", ""},
    };
    for (const auto& call : calls) {
        const auto answer = parseArguments(call);
        ASSERT_TRUE(std::holds_alternative<Answer>(answer)) << ::testing::PrintToString(call);
        EXPECT_TRUE(std::get<Answer>(answer).isError);
    }
    const auto scan =
        std::get<ScanArguments>(parseArguments({"scan", "--include", "extensions , system-apps"}));
    EXPECT_TRUE(scan.options.includeExtensions && scan.options.includeSystemApps);
    EXPECT_EQ(std::get<InspectArguments>(parseArguments({"inspect", "[a,b]"})).paths.size(), 1U);
}

} // namespace
} // namespace veridane::cli
