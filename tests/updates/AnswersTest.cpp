#include "updates/AppcastParser.h"
#include "updates/StoreLookup.h"

#include <gtest/gtest.h>

/// What feeds and the store answer.
namespace veridane {
namespace {

/// The newest entry of a feed, such as "120 (1.2)".
std::string newestOf(const std::string& content) {
    const auto entry = AppcastParser::parse("<rss>" + content + "</rss>");
    return entry ? entry->version.value_or("-") + " (" + entry->shortVersion.value_or("-") + ")"
                 : "unreadable";
}

std::string element(const std::string& text) {
    return "<sparkle:version>" + text + "</sparkle:version>";
}

/// An item with an enclosure of this version, and something else.
std::string item(const std::string& version, const std::string& more = "") {
    return "<item><enclosure sparkle:version='" + version + "'/>" + more + "</item>";
}

std::string shortElement(const std::string& text) {
    return "<sparkle:shortVersionString>" + text + "</sparkle:shortVersionString>";
}

TEST(Appcast, TheNewestItemIsGivenWithTheLastVersionsThatStandInIt) {
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"an element behind the attribute", item("120", element("\u00A0 130\r\n")), "130 (-)"},
        {"an element before it", "<item>" + element("130") + item("120").substr(6), "120 (-)"},
        {"blank element", item("120", element(" ")), "120 (-)"},
        {"empty attribute", item("1", "<enclosure sparkle:version=''/>"), " (-)"},
        {"attributes as they stand", item(" 1 "), " 1  (-)"},
        {"each attribute for itself",
         item("1", "<a><enclosure sparkle:version='2' sparkle:shortVersionString='b'/></a>"
                   "<enclosure sparkle:version='3'/>"),
         "3 (b)"},
        {"a tag in the text", item("9", element("1<b/>2")), "2 (-)"},
        {"a tag at its end", item("9", element("1<b>2</b>")), "9 (-)"},
        {"a version in a version", item("9", element("1" + shortElement("2") + "3")), "3 (2)"},
        {"no tag in the text", item("9", element("1<!-- -->2<![CDATA[9]]>&#51;")), "123 (-)"},
        {"another prefix or case",
         "<item><enclosure s:version='1' Sparkle:version='1'/><version>1</version></item>",
         "- (-)"},
        {"outside of items", "<enclosure sparkle:version='1'/><item/>" + element("1"), "- (-)"},
        {"an item in an item", item("1", item("2") + element("3")), "2 (-)"},
        {"no item", element("1"), "unreadable"},
        {"no good end", item("1") + "<item>", "unreadable"},
        {"in the middle", item("1.9") + item("1.10") + item("1.2"), "1.10 (-)"},
        {"equal", item("2.0", shortElement("a")) + item("2.0.0", shortElement("b")), "2.0 (a)"},
        {"unequal keys", item("3") + "<item>" + shortElement("4") + "</item>", "- (4)"},
        {"the version before the short one", item("3", shortElement("9")) + item("4"), "4 (-)"},
        {"none is no more", "<item/>" + item("0.1"), "0.1 (-)"},
        {"none and empty are 0", "<item/>" + item("") + item("0.0"), "- (-)"},
    };
    for (const auto& [what, content, newest] : cases)
        EXPECT_EQ(newestOf(content), newest) << what;
}

TEST(Appcast, FiftyThousandItemsAreReadInPieces) {
    constexpr int count = 50'000;
    std::string feed = "<rss>";
    for (int i = 0; i < count; ++i)
        feed += item("1." + std::to_string(i * 7'919LL % count)); // all numbers, mixed up
    feed += "</rss>";
    AppcastParser parser;
    for (std::size_t at = 0; at < feed.size(); at += 1'448)
        parser.feed(std::string_view(feed).substr(at, 1'448));
    EXPECT_EQ(parser.finish(), (AppcastEntry{"1.49999", std::nullopt}));
}

TEST(StoreAnswer, IsAskedForWithTheIdentifierAsItIs) {
    const std::pair<std::string_view, std::optional<std::string>> cases[] = {
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
    using namespace std::string_literals;
    const auto nested = [](std::size_t depth) { // three of them are the answer's own
        return R"({"results":[{"version":"1","a":)" + std::string(depth - 3, '[') +
               std::string(depth - 3, ']') + "}]}";
    };
    const std::pair<std::string, std::optional<std::string>> cases[] = {
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
        {nested(512), "1"},
        {nested(513), std::nullopt},
        {nested(200'000), std::nullopt},
        // Not JSON.
        {"", std::nullopt},
        {R"({"results":[{"version":"1"}])", std::nullopt},
        {"{\"results\":[{\"version\":\"1\"}]}\0}"s, std::nullopt},
        {"{\"results\":[{\"version\":\"1\",\"a\":\"\xE4\"}]}", std::nullopt},
    };
    for (const auto& [body, version] : cases)
        EXPECT_EQ(storeVersion(body), version) << body.substr(0, 200);
}

} // namespace
} // namespace veridane
