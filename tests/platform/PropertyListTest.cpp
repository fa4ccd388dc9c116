#include "platform/PropertyList.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace veridane {
namespace {

using Texts = std::vector<std::string>;

std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    while (times-- > 0)
        result += text;
    return result;
}

std::string bigEndian(std::uint64_t value, std::size_t size) {
    std::string bytes(size, '\0');
    for (; size > 0; value >>= 8)
        bytes[--size] = static_cast<char>(value & 0xFF);
    return bytes;
}

/// An object of a binary list, with its count in the long form.
std::string object(std::uint64_t kind, std::size_t count, const std::string& content) {
    return bigEndian(kind << 4 | 0xF, 1) + "\x12" + bigEndian(count, 4) + content;
}

std::string ascii(const std::string& text) {
    return object(0x5, text.size(), text);
}

std::string array(const std::vector<std::uint64_t>& indexes) {
    std::string content;
    for (const auto index : indexes)
        content += bigEndian(index, 4);
    return object(0xA, indexes.size(), content);
}

/// A binary list put together by hand, so that it can be wrong: {"a": third object} at first.
std::string binary(const Texts& furtherObjects, const std::string& key = ascii("a")) {
    Texts objects = {object(0xD, 1, bigEndian(1, 4) + bigEndian(2, 4)), key};
    objects.insert(objects.end(), furtherObjects.begin(), furtherObjects.end());
    std::string bytes = "bplist00";
    std::string offsets;
    for (const auto& object : objects) {
        offsets += bigEndian(bytes.size(), 4);
        bytes += object;
    }
    const auto table = bytes.size();
    return bytes + offsets + std::string(6, '\0') + "\x04\x04" + bigEndian(objects.size(), 8) +
           bigEndian(0, 8) + bigEndian(table, 8);
}

std::string xml(const std::string& value) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n<dict>\n<key>a</key>\n" +
           value + "\n</dict>\n</plist>\n";
}

/// The text under "a", or why there is none.
std::string textIn(const std::string& bytes) {
    const auto list = PropertyList::parse(bytesOf(bytes));
    return list ? list->text("a").value_or("no text") : "no list";
}

TEST(PropertyList, GivesTheTextsOfBothForms) {
    const struct {
        const char* what;
        std::string bytes, expected;
    } cases[] = {
        {"plain XML", xml("<string>Höhe</string>"), "Höhe"},
        {"empty text", xml("<string/>"), ""},
        {"byte order mark", "\xEF\xBB\xBF" + xml("<string>x</string>"), "x"},
        {"comments, CDATA, entities",
         xml("<!-- \" <array> -- --><string>x<!-- </dict> -->"
             "<![CDATA[<b>&amp;]]>&lt;&#228;&#x1F600;</string>"),
         "x<b>&amp;<ä\U0001F600"},
        {"invalid UTF-8", xml("<string>a\xFFz&#xD800;</string>"), "a\uFFFDz\uFFFD\uFFFD\uFFFD"},
        {"a number", xml("<integer>5</integer>"), "no text"},
        {"binary ASCII", binary({"\x51x"}), "x"},
        {"long binary ASCII", binary({ascii(repeated("x", 300))}), repeated("x", 300)},
        {"bytes that are no ASCII", binary({ascii("a\xE4")}), "a\uFFFD"},
        {"UTF-16 with a zero", binary({object(0x6, 3, std::string("\0x\0\0\x20\xAC", 6))}),
         std::string("x\0€", 5)},
        {"a Boolean", binary({"\x09"}), "no text"},
        {"shared objects", binary({array({1, 1, 4, 4}), "", array({1})}), "no text"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(textIn(c.bytes), c.expected);
    }
}

TEST(PropertyList, AListOfTextsHoldsNothingElse) {
    const auto textsIn = [](const std::string& bytes) {
        const auto list = PropertyList::parse(bytesOf(bytes));
        return list ? list->textList("a") : std::nullopt;
    };
    EXPECT_EQ(textsIn(xml("<array><string>/bin/x</string><string/></array>")),
              (Texts{"/bin/x", ""}));
    EXPECT_EQ(textsIn(xml("<array/>")), Texts());
    EXPECT_EQ(textsIn(binary({array({1, 1})})), (Texts{"a", "a"}));
    EXPECT_EQ(textsIn(xml("<array><string>x</string><true/></array>")), std::nullopt);
    EXPECT_EQ(textsIn(xml("<string>x</string>")), std::nullopt);

    const auto list = PropertyList::parse(bytesOf(std::string_view("<plist><dict/></plist>")));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->text("a"), std::nullopt);
    EXPECT_EQ(list->textList("a"), std::nullopt);
}

TEST(PropertyList, ADamagedOrHostileListIsNone) {
    constexpr std::size_t many = 100'000;
    Texts nested, doubling;
    for (std::size_t i = 3; i < many; ++i)
        nested.push_back(array({i}));
    nested.push_back("\x09");
    for (std::size_t i = 3; i < 60; ++i)
        doubling.push_back(array({i, i}));
    doubling.push_back("\x09");
    std::string colliding; // "Ab" and "BA" add up to the same hash
    for (unsigned i = 0; i < 1U << 14; ++i) {
        colliding += "<key>";
        for (unsigned bit = 0; bit < 14; ++bit)
            colliding += (i >> bit & 1) != 0 ? "Ab" : "BA";
        colliding += "</key><true/>";
    }
    const auto changed = [](std::size_t fromEnd, const std::string& bytes) {
        auto list = binary({ascii("x")});
        return list.replace(list.size() - fromEnd, bytes.size(), bytes);
    };
    const struct {
        const char* what;
        std::string bytes;
    } cases[] = {
        {"nothing", ""},
        {"no list", "#!/bin/sh\n"},
        {"the root is no dictionary", "<plist><array/></plist>"},
        {"the binary root is no dictionary", changed(16, bigEndian(1, 8))},
        {"deep XML", xml(repeated("<array>", many) + repeated("</array>", many))},
        {"deep XML whose ends are comments",
         xml(repeated("<array><!--</array>-->", 600) + repeated("</array>", 600))},
        {"deep XML whose ends are in quotes",
         xml(repeated("<array><?a \" ?></array><?a \" ?>", 600) +
             repeated("<?a \" ?><array><?a \" ?></array>", 600))},
        {"many elements", xml("<array>" + repeated("<true/>", many) + "</array>")},
        {"colliding keys", xml("<dict>" + colliding + "</dict>")},
        {"many entities", xml("<string>" + repeated("&amp;", 60'000) + "</string>")},
        {"declared entities", "<!DOCTYPE plist [<!ENTITY b \"c\">]>" + xml("<true/>")},
        {"unfinished comment", xml("<true/><!-- ")},
        {"deep binary", binary(nested)},
        {"a cycle", binary({array({0})})},
        {"doubling", binary(doubling)},
        {"a shared big text",
         binary({array(std::vector<std::uint64_t>(70, 3)), ascii(repeated("x", 1'000'000))})},
        {"a key that is a number", binary({ascii("x")}, "\x10\x05")},
        {"a key that is a list", binary({ascii("x")}, array({}))},
        {"no such object", binary({array({9})})},
        {"text beyond the end", binary({"\x5Ex"})},
        {"a count that wraps", binary({"\xAF\x13" + bigEndian(UINT64_MAX / 4 + 1, 8)})},
        {"offsets of no size", changed(26, std::string(1, '\0'))},
        {"references of nine bytes", changed(25, "\x09")},
        {"an object count that wraps", changed(24, bigEndian(UINT64_MAX / 4 + 2, 8))},
        {"no such root", changed(16, bigEndian(3, 8))},
        {"a table beyond the end", changed(8, bigEndian(UINT64_MAX - 3, 8))},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(textIn(c.bytes), "no list");
    }
}

TEST(PropertyList, AGoodListWithAnyByteCutOffOrChangedNeverHarms) {
    const auto good = binary({array({3, 4}), ascii("x"), object(0x6, 1, "\x20\xAC")});
    for (std::size_t size = 0; size < good.size(); ++size)
        EXPECT_EQ(textIn(std::string(good, 0, size)), "no list") << size;
    for (std::size_t i = 0; i < good.size(); ++i) {
        for (unsigned value = 0; value <= 0xFF; ++value) {
            auto changed = good;
            changed[i] = static_cast<char>(value);
            (void)textIn(changed);
        }
    }
    const auto document = xml("<string>x</string>");
    for (std::size_t size = 0; size < document.find("</dict>"); ++size)
        EXPECT_EQ(textIn(document.substr(0, size)), "no list") << size;
}

} // namespace
} // namespace veridane
