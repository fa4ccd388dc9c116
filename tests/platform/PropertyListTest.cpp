#include "platform/PropertyList.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <functional>
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

/// Objects of a binary list, put together by hand so that they can be wrong.
std::string object(std::uint8_t kind, std::size_t count, const std::string& content) {
    const auto marker = [](unsigned high, unsigned low) {
        return std::string(1, static_cast<char>(high << 4 | low));
    };
    if (count < 15)
        return marker(kind, static_cast<unsigned>(count)) + content;
    return marker(kind, 15) + marker(1, 2) + bigEndian(count, 4) + content;
}

std::string ascii(const std::string& text) {
    return object(0x5, text.size(), text);
}

std::string list(std::uint8_t kind, std::size_t count, const std::vector<std::uint64_t>& indexes) {
    std::string content;
    for (const auto index : indexes)
        content += bigEndian(index, 4);
    return object(kind, count, content);
}

std::string array(const std::vector<std::uint64_t>& indexes) {
    return list(0xA, indexes.size(), indexes);
}

std::string binary(const Texts& objects) {
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

/// The list {"a": third object}, whose further objects are free.
std::string binaryWith(const Texts& value) {
    Texts objects = {list(0xD, 1, {1, 2}), ascii("a")};
    objects.insert(objects.end(), value.begin(), value.end());
    return binary(objects);
}

std::string xmlWith(const std::string& value) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
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
        {"plain XML", xmlWith("<string>Höhe</string>"), "Höhe"},
        {"empty text", xmlWith("<string/>"), ""},
        {"byte order mark", "\xEF\xBB\xBF" + xmlWith("<string>x</string>"), "x"},
        {"comments, CDATA, entities",
         xmlWith("<!-- \" <array> -- --><string>x<!-- </dict> -->"
                 "<![CDATA[<b>&amp;]]>&lt;&#228;&#x1F600;</string>"),
         "x<b>&amp;<ä\U0001F600"},
        {"invalid UTF-8", xmlWith("<string>a\xFFz</string>"), "a\uFFFDz"},
        {"a surrogate as character", xmlWith("<string>&#xD800;</string>"), "\uFFFD\uFFFD\uFFFD"},
        {"a number", xmlWith("<integer>5</integer>"), "no text"},
        {"binary ASCII", binaryWith({ascii("x")}), "x"},
        {"long binary ASCII", binaryWith({ascii(std::string(300, 'x'))}), std::string(300, 'x')},
        {"bytes that are no ASCII", binaryWith({ascii("a\xE4")}), "a\uFFFD"},
        {"UTF-16 with a zero", binaryWith({object(0x6, 3, std::string("\0x\0\0\x20\xAC", 6))}),
         std::string("x\0€", 5)},
        {"a Boolean", binaryWith({"\x09"}), "no text"},
        {"shared objects", binaryWith({array({1, 1, 4, 4}), "", array({1})}), "no text"},
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
    EXPECT_EQ(textsIn(xmlWith("<array><string>/bin/x</string><string/></array>")),
              (Texts{"/bin/x", ""}));
    EXPECT_EQ(textsIn(xmlWith("<array/>")), Texts());
    EXPECT_EQ(textsIn(binaryWith({array({1, 1})})), (Texts{"a", "a"}));
    EXPECT_EQ(textsIn(xmlWith("<array><string>x</string><true/></array>")), std::nullopt);
    EXPECT_EQ(textsIn(xmlWith("<string>x</string>")), std::nullopt);

    const auto list = PropertyList::parse(bytesOf(std::string_view("<plist><dict/></plist>")));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->text("a"), std::nullopt);
    EXPECT_EQ(list->textList("a"), std::nullopt);
}

TEST(PropertyList, ADamagedOrHostileListIsNone) {
    constexpr std::size_t levels = 100'000;
    Texts nested;
    for (std::size_t i = 0; i < levels; ++i)
        nested.push_back(array({3 + i}));
    nested.push_back(ascii("x"));
    Texts doubling; // 2^60 nodes in 60 objects
    for (std::size_t i = 0; i < 60; ++i)
        doubling.push_back(array({3 + i, 3 + i}));
    doubling.push_back(ascii("x"));
    // 2^13 keys and 2^13 more whose hashes all agree: "Ab" and "BA" weigh the same.
    std::string colliding;
    for (unsigned i = 0; i < 1U << 14; ++i) {
        colliding += "<key>";
        for (unsigned bit = 0; bit < 14; ++bit)
            colliding += (i >> bit & 1) != 0 ? "Ab" : "BA";
        colliding += "</key><true/>";
    }
    const auto good = binaryWith({ascii("x")});
    const auto changed = [&](std::size_t fromEnd, const std::string& bytes) {
        auto bad = good;
        return bad.replace(bad.size() - fromEnd, bytes.size(), bytes);
    };
    const struct {
        const char* what;
        std::string bytes;
    } cases[] = {
        {"nothing", ""},
        {"no list", "#!/bin/sh\n"},
        {"the root is no dictionary", "<plist><array/></plist>"},
        {"the binary root is no dictionary", binary({array({})})},
        {"deep XML", xmlWith(repeated("<array>", levels) + repeated("</array>", levels))},
        {"deep XML whose ends are comments",
         xmlWith(repeated("<array><!--</array>-->", levels) + repeated("</array>", levels))},
        {"deep XML whose ends are in quotes",
         xmlWith(repeated("<array><?a \" ?></array><?a \" ?>", levels))},
        {"more ends than beginnings", xmlWith("<true/></dict></plist></plist>")},
        {"many elements", xmlWith("<array>" + repeated("<true/>", levels) + "</array>")},
        {"colliding keys", xmlWith("<dict>" + colliding + "</dict>")},
        {"many entities", xmlWith("<string>" + repeated("&amp;", 1'000'000) + "</string>")},
        {"declared entities",
         "<!DOCTYPE plist [<!ENTITY b \"c\">]>" + xmlWith("<string>&b;</string>")},
        {"unfinished comment", xmlWith("<true/><!-- ")},
        {"deep binary", binaryWith(nested)},
        {"a cycle", binaryWith({array({0})})},
        {"doubling", binaryWith(doubling)},
        {"a shared big text",
         binaryWith({array(std::vector<std::uint64_t>(70, 3)), ascii(repeated("x", 1'000'000))})},
        {"a key that is a number", binary({list(0xD, 1, {1, 2}), "\x10\x05", ascii("x")})},
        {"a key that is a list", binary({list(0xD, 1, {1, 2}), array({}), ascii("x")})},
        {"no such object", binaryWith({array({9})})},
        {"text beyond the end", binaryWith({"\x5E"
                                            "x"})},
        {"a count that wraps", binaryWith({"\xAF\x13" + bigEndian(UINT64_MAX / 4 + 1, 8)})},
        {"a count of sixteen bytes", binaryWith({"\x5F\x14" + bigEndian(1, 16) + "x"})},
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
    const auto good = binaryWith({array({3, 4}), ascii("x"), object(0x6, 1, "\x20\xAC")});
    for (std::size_t size = 0; size < good.size(); ++size)
        EXPECT_EQ(textIn(std::string(good, 0, size)), "no list") << size;
    for (std::size_t i = 0; i < good.size(); ++i) {
        for (unsigned value = 0; value <= 0xFF; ++value) {
            auto changed = good;
            changed[i] = static_cast<char>(value);
            (void)textIn(changed);
        }
    }
    const auto xml = xmlWith("<string>x</string>");
    for (std::size_t size = 0; size < xml.find("</dict>"); ++size)
        EXPECT_EQ(textIn(xml.substr(0, size)), "no list") << size;
}

} // namespace
} // namespace veridane
