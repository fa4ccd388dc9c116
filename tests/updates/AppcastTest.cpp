#include "updates/AppcastParser.h"

#include <gtest/gtest.h>

namespace veridane {

void PrintTo(const AppcastEntry& entry, std::ostream* out) {
    *out << entry.version.value_or("-") << " (" << entry.shortVersion.value_or("-") << ")";
}

namespace {

using Entry = std::optional<AppcastEntry>;

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

std::string shortItem(const std::string& version) {
    return "<item>" + shortElement(version) + "</item>";
}

Entry version(const char* text) {
    return AppcastEntry{text, std::nullopt};
}

TEST(Appcast, TheVersionsOfAnItemAreTheLastThatStandInIt) {
    const struct {
        const char* what;
        std::string content;
        Entry entry;
    } cases[] = {
        {"an element behind the attribute", item("120", element("\u00A0 130\r\n")), version("130")},
        {"an element before it", "<item>" + element("130") + item("120").substr(6), version("120")},
        {"blank element", item("120", element(" ")), version("120")},
        {"empty attribute", item("1", "<enclosure sparkle:version=''/>"), version("")},
        {"attributes as they stand", item(" 1 "), version(" 1 ")},
        {"each attribute for itself",
         item("1", "<a><enclosure sparkle:version='2' sparkle:shortVersionString='b'/></a>"
                   "<enclosure sparkle:version='3'/>"),
         AppcastEntry{"3", "b"}},
        {"a tag in the text", item("9", element("1<b/>2")), version("2")},
        {"a tag at its end", item("9", element("1<b>2</b>")), version("9")},
        {"a version in a version", item("9", element("1" + shortElement("2") + "3")),
         AppcastEntry{"3", "2"}},
        {"no tag in the text", item("9", element("1<!-- -->2<![CDATA[9]]>&#51;")), version("123")},
        {"nothing but CDATA", item("9", element("<![CDATA[1]]>")), version("9")},
        {"another prefix or case",
         "<item><enclosure s:version='1' Sparkle:version='1'/><version>1</version></item>",
         AppcastEntry()},
        {"outside of items", "<enclosure sparkle:version='1'/><item/>" + element("1"),
         AppcastEntry()},
        {"an item in an item", item("1", item("2") + element("3")), version("2")},
        {"no item", element("1"), std::nullopt},
        {"no good end", item("1") + "<item>", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(AppcastParser::parse("<rss>" + c.content + "</rss>"), c.entry) << c.what;
}

TEST(Appcast, TheNewestItemIsGivenAndOfEqualOnesTheFirst) {
    const struct {
        const char* what;
        std::string items;
        Entry newest;
    } cases[] = {
        {"rising", item("1.9") + item("1.10") + item("1.2"), version("1.10")},
        {"equal", item("2.0", shortElement("a")) + item("2.0.0", shortElement("b")),
         AppcastEntry{"2.0", "a"}},
        {"unequal keys", item("3") + shortItem("4"), AppcastEntry{std::nullopt, "4"}},
        {"the version before the short one", item("3", shortElement("9")) + item("4"),
         version("4")},
        {"none is 0", "<item/>" + item("0"), AppcastEntry()},
        {"none is no more", "<item/>" + item("0.1"), version("0.1")},
        {"empty is 0", item("") + shortItem("0") + item("0.0"), version("")},
    };
    for (const auto& c : cases)
        EXPECT_EQ(AppcastParser::parse("<rss>" + c.items + "</rss>"), c.newest) << c.what;
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
    EXPECT_EQ(parser.finish(), version("1.49999"));
}

} // namespace
} // namespace veridane
