#include "ui/LaunchArguments.h"

#include "support/VolumeTest.h"

namespace veridane::ui {
namespace {

using test::Texts;

TEST(LaunchArguments, AreReadInAnyOrder) {
    const LaunchArguments expected{
        .volume = "./[mac]", .homes = {"/Users/a", "/Users/b"}, .seeds = {"UITEST_SEED_DATA"}};
    for (const Texts& arguments :
         {Texts{"--volume", "[mac]", "--home", "/Users/a", "UITEST_SEED_DATA", "--home=/Users/b"},
          {"UITEST_SEED_DATA", "--home=/Users/a", "--home", "/Users/b", "--volume=./[mac]"}})
        EXPECT_EQ(std::get<LaunchArguments>(parseLaunchArguments(arguments)), expected);
}

TEST(LaunchArguments, AWrongCallIsToldInOneLine) {
    for (const Texts& arguments : {Texts{"--volume"},
                                   {"--volume", ""},
                                   {"--home="},
                                   {"/media/mac"},
                                   {"--colour"},
                                   {"-x\n--volume=y"},
                                   {"--volume=a", "--volume=b"}}) {
        const auto answer = std::get<LaunchAnswer>(parseLaunchArguments(arguments));
        EXPECT_TRUE(answer.isError) << arguments.front();
        EXPECT_EQ(answer.text.find('\n'), std::string::npos) << answer.text;
    }
    EXPECT_FALSE(std::get<LaunchAnswer>(parseLaunchArguments({"--colour", "--help"})).isError);
}

} // namespace
} // namespace veridane::ui
