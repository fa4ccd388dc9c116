#include "updates/AppcastParser.h"

#include <gtest/gtest.h>

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

TEST(Appcast, TheVersionsOfAnItemAreTheLastThatStandInIt) {
    const struct {
        std::string what, content, newest;
    } cases[] = {
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
    };
    for (const auto& c : cases)
        EXPECT_EQ(newestOf(c.content), c.newest) << c.what;
}

TEST(Appcast, TheNewestItemIsGivenAndOfEqualOnesTheFirst) {
    const struct {
        std::string what, content, newest;
    } cases[] = {
        {"in the middle", item("1.9") + item("1.10") + item("1.2"), "1.10 (-)"},
        {"equal", item("2.0", shortElement("a")) + item("2.0.0", shortElement("b")), "2.0 (a)"},
        {"unequal keys", item("3") + "<item>" + shortElement("4") + "</item>", "- (4)"},
        {"the version before the short one", item("3", shortElement("9")) + item("4"), "4 (-)"},
        {"none is no more", "<item/>" + item("0.1"), "0.1 (-)"},
        {"none and empty are 0", "<item/>" + item("") + item("0.0"), "- (-)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(newestOf(c.content), c.newest) << c.what;
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

} // namespace
} // namespace veridane
