#include "updates/VersionRule.h"

#include <gtest/gtest.h>

namespace veridane::UpdateChecker {
namespace {

TEST(Version, IsTheListOfNumbersInTheText) {
    using Components = std::vector<std::int64_t>;
    const struct {
        std::string_view text;
        Components components;
    } cases[] = {
        {"2.0b3", {2, 0, 3}},
        {"..1..2-", {1, 2}},
        {"", {}},
        {"9223372036854775807.9223372036854775808", {INT64_MAX, 0}},
        {"1.\u0663\u0664.2", {1, 0, 2}}, // Arabic-Indic digits
        {"1½.Ⅻ.3", {0, 0, 3}},           // a fraction joins its run
        {"1十.四五2", {0, 0}},           // Chinese numerals are letters to most rules
        {"1\xFF"
         "2\xE5\x8D",
         {1, 2}},
    };
    for (const auto& [text, components] : cases)
        EXPECT_EQ(versionComponents(text), components) << text;
}

TEST(Version, IsNewerByTheFirstComponentThatDiffers) {
    const struct {
        std::string_view a, b;
        bool isNewer;
    } cases[] = {
        {"1.10", "1.9", true},     {"1.2.1", "1.2", true}, {"1.2", "1.2.0", false},
        {"1.2b3", "1.2.3", false}, {"", "0.0", false},     {"2", "1.9.9", true},
        {"1.0", "1.0.0.1", false},
    };
    for (const auto& [a, b, expected] : cases) {
        EXPECT_EQ(isNewer(a, b), expected) << a << " and " << b;
        EXPECT_EQ(isNewer(a, versionComponents(b)), expected) << a << " and " << b;
        EXPECT_FALSE(isNewer(a, a)) << a;
    }
}

} // namespace
} // namespace veridane::UpdateChecker
