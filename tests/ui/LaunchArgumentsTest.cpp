#include "ui/LaunchArguments.h"

#include "support/VolumeTest.h"

namespace veridane::ui {
namespace {

using test::Texts;

TEST(LaunchArguments, AreReadInAnyOrder) {
    const std::pair<Texts, LaunchArguments> cases[] = {
        {{}, {}},
        {{"--volume", "/media/mac"}, {.volume = "/media/mac"}},
        {{"--volume=[mac]", "--home", "/Users/a", "UITEST_SEED_DATA", "--home=/Users/b"},
         {.volume = "[mac]", .homes = {"/Users/a", "/Users/b"}, .seeds = {"UITEST_SEED_DATA"}}},
        {{"UITEST_SEED_DATA", "UITEST_AUTOMATE_PROGRAM_FILTER", "--volume", "[mac]"},
         {.volume = "./[mac]", .seeds = {"UITEST_SEED_DATA", "UITEST_AUTOMATE_PROGRAM_FILTER"}}},
    };
    for (const auto& [arguments, expected] : cases) {
        const auto parsed = parseLaunchArguments(arguments);
        ASSERT_TRUE(std::holds_alternative<LaunchArguments>(parsed));
        EXPECT_EQ(std::get<LaunchArguments>(parsed), expected);
    }
}

TEST(LaunchArguments, AWrongCallIsToldInOneLineAndHelpAsksForNothingElse) {
    const std::pair<Texts, bool> cases[] = {
        {{"--help"}, false},      {{"--version"}, false},     {{"--volume"}, true},
        {{"--volume", ""}, true}, {{"--home="}, true},        {{"/media/mac"}, true},
        {{"--colour"}, true},     {{"-x\n--volume=y"}, true}, {{"--volume=a", "--volume=b"}, true},
    };
    for (const auto& [arguments, isError] : cases) {
        SCOPED_TRACE(arguments.front());
        const auto parsed = parseLaunchArguments(arguments);
        ASSERT_TRUE(std::holds_alternative<LaunchAnswer>(parsed));
        const auto& answer = std::get<LaunchAnswer>(parsed);
        EXPECT_EQ(answer.isError, isError);
        EXPECT_EQ(answer.text.find('\n') == std::string::npos, isError) << answer.text;
    }
}

} // namespace
} // namespace veridane::ui
