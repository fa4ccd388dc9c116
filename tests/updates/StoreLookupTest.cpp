#include "updates/StoreLookup.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

TEST(StoreAnswer, IsAskedForWithTheIdentifierAsItIs) {
    const struct {
        std::string_view identifier;
        std::optional<std::string> url;
    } cases[] = {
        {"org.example.App", "http://[::1]:80/lookup?bundleId=org.example.App&country=de"},
        {"a%20b&c=#d", "http://[::1]:80/lookup?bundleId=a%20b&c=#d&country=de"},
        {"a b", std::nullopt},
    };
    for (const auto& [identifier, expected] : cases) {
        const auto url = storeLookupUrl("http://[::1]:80", identifier);
        EXPECT_EQ(url ? std::optional(url->text()) : std::nullopt, expected) << identifier;
    }
}

TEST(StoreAnswer, HoldsTheVersionOfItsFirstResult) {
    using namespace std::string_view_literals;
    const struct {
        std::string_view body;
        std::optional<std::string> version;
    } cases[] = {
        {R"({"resultCount":2,"results":[{"a":{"version":"9"},"version":" 1.0\u00e4 ","b":[{"version":"9"}]},)"
         R"({"version":"2"}],"version":"9","more":{"results":[{"version":"9"}]}})",
         " 1.0ä "},
        {R"({"results":[{"version":""}]})", ""},
        // Of a key that is there twice, the last counts.
        {R"({"results":[{"version":"1","version":"2"}]})", "2"},
        {R"({"results":[{"version":"1","version":["2"]}]})", std::nullopt},
        {R"({"results":[{"version":"1"}],"results":[{}]})", std::nullopt},
        // Not the form of an answer.
        {R"({"results":[{}, {"version":"2"}]})", std::nullopt},
        {R"({"results":[{"version":1.0}]})", std::nullopt},
        {R"({"results":[{"version":"1"}, 2]})", std::nullopt},
        {R"({"results":[[{"version":"1"}]]})", std::nullopt},
        {R"({"results":{"0":{"version":"1"}}})", std::nullopt},
        {R"([{"results":[{"version":"1"}]}])", std::nullopt},
        // Not JSON.
        {"", std::nullopt},
        {R"({"results":[{"version":"1"}])", std::nullopt},
        {"{\"results\":[{\"version\":\"1\"}]}\0}"sv, std::nullopt},
        {"{\"results\":[{\"version\":\"1\",\"a\":\"\xE4\"}]}", std::nullopt},
    };
    for (const auto& [body, version] : cases)
        EXPECT_EQ(storeVersion(body), version) << body;
}

TEST(StoreAnswer, IsUselessWhereItIsNestedWithoutEnd) {
    const auto answer = [](std::size_t depth) { // three of them are the answer's own
        return R"({"results":[{"version":"1","a":)" + std::string(depth - 3, '[') +
               std::string(depth - 3, ']') + "}]}";
    };
    EXPECT_EQ(storeVersion(answer(512)), "1");
    for (const std::size_t depth : {513U, 200'000U})
        EXPECT_EQ(storeVersion(answer(depth)), std::nullopt);
}

} // namespace
} // namespace veridane
