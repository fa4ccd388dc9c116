#include "platform/PropertyList.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

using Texts = std::vector<std::string>;
using namespace std::string_literals;

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

using Indexes = std::vector<std::uint64_t>;
std::string array(const Indexes& indexes) {
    std::string content;
    for (const auto index : indexes)
        content += bigEndian(index, 4);
    return object(0xA, indexes.size(), content);
}

/// A binary list put together by hand, so that it can be wrong: {"a": third object} at first.
std::string binary(const Texts& furtherObjects, const std::string& key = ascii("a")) {
    Texts objects = {object(0xD, 1, bigEndian(1, 4) + bigEndian(2, 4)), key};
    objects.insert(objects.end(), furtherObjects.begin(), furtherObjects.end());
    std::string bytes = "bplist00", offsets;
    for (const auto& object : objects) {
        offsets += bigEndian(bytes.size(), 4);
        bytes += object;
    }
    return bytes + offsets + std::string(6, '\0') + "\x04\x04" + bigEndian(objects.size(), 8) +
           bigEndian(0, 8) + bigEndian(bytes.size(), 8);
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
    std::string lowFirst = "\xFF\xFE", highFirst = "\xFE\xFF";
    for (const char c : "<plist><dict><key>a</key><string>x</string></dict></plist>"s) {
        lowFirst += {c, '\0'};
        highFirst += {'\0', c};
    }
    const std::string longest(PropertyList::maxTextSize, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {xml("<string>Höhe</string>"), "Höhe"},
        {xml("<string/>"), ""},
        {"\xEF\xBB\xBF" + xml("<string>behind a mark</string>"), "behind a mark"},
        {xml("<!-- \" <array> -- --><string>x<!-- </dict> -->"
             "<![CDATA[<b>&amp;]]>&lt;&#228;&#x1F600;</string>"),
         "x<b>&amp;<ä\U0001F600"},
        {xml("<string>a\xFFz&#xD800;</string>"), "a\uFFFDz\uFFFD\uFFFD\uFFFD"},
        {xml("<integer>5</integer>"), "no text"},
        {"<plist><dict/></plist>", "no text"},
        {lowFirst, "x"},
        {highFirst, "x"},
        {xml("<string>" + longest + "</string>"), longest},
        {xml("<string>x" + longest + "</string>"), "no text"},
        {xml("<array>" + repeated("<dict><key>b</key><true/></dict>", 12'000) + "</array>"),
         "no text"},
        {binary({"\x51x"}), "x"},
        {binary({ascii(repeated("x", 300))}), repeated("x", 300)},
        {binary({ascii("a\xE4")}), "a\uFFFD"},
        {binary({object(0x6, 3, std::string("\0x\0\0\x20\xAC", 6))}), std::string("x\0€", 5)},
        {binary({array({1, 1, 4, 4}), "", array({1})}), "no text"}, // shared objects
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(textIn(bytes), expected) << bytes.substr(0, 300);
}

TEST(PropertyList, AListOfTextsHoldsNothingElse) {
    const std::pair<std::string, std::optional<Texts>> cases[] = {
        {xml("<array><string>/bin/x</string><string/></array>"), {{"/bin/x", ""}}},
        {xml("<array/>"), Texts()},
        {binary({array({1, 1})}), {{"a", "a"}}},
        {xml("<array><string>x</string><true/></array>"), {}},
        {xml("<string>x</string>"), {}},
        {"<plist><dict/></plist>", {}},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(PropertyList::parse(bytesOf(bytes))->textList("a"), expected) << bytes;
}

TEST(PropertyList, ADamagedOrHostileListIsNone) {
    constexpr std::size_t many = 100'000;
    Texts nested, doubling;
    for (std::size_t i = 3; i < many; ++i)
        nested.push_back(array({i}));
    for (std::size_t i = 3; i < 60; ++i)
        doubling.push_back(array({i, i}));
    nested.push_back("\x09");
    doubling.push_back("\x09");
    const auto changed = [](std::size_t fromEnd, const std::string& bytes) {
        auto list = binary({ascii("x")});
        return list.replace(list.size() - fromEnd, bytes.size(), bytes);
    };
    const std::pair<const char*, std::string> cases[] = {
        {"no list", "#!/bin/sh\n"},
        {"the root is no dictionary", "<plist><array/></plist>"},
        {"deep, with ends in comments",
         xml(repeated("<array><!--</array>-->", 600) + repeated("</array>", 600))},
        {"deep, with ends in quotes", xml(repeated("<array><?a \" ?></array><?a \" ?>", 600) +
                                          repeated("<?a \" ?><array><?a \" ?></array>", 600))},
        {"many elements", xml("<array>" + repeated("<true/>", many) + "</array>")},
        {"many keys", xml("<dict>" + repeated("<key>k</key><true/>", 12'000) + "</dict>")},
        {"arrays in no instruction", xml("<?>" + repeated("<array>", 12'000) + "<?>")},
        {"many entities", xml("<string>" + repeated("&amp;", 60'000) + "</string>")},
        {"declared entities", "<!DOCTYPE plist [<!ENTITY b \"c\">]>" + xml("<true/>")},
        {"unfinished comment", xml("<true/><!-- ")},
        {"deep binary", binary(nested)},
        {"a cycle", binary({array({0})})},
        {"doubling", binary(doubling)},
        {"a shared big text", binary({array(Indexes(17, 3)), ascii(repeated("x", 1'000'000))})},
        {"larger than lists are",
         "<plist><dict/></plist>" + repeated(" ", PropertyList::maxFileSize)},
        {"a key that is a number", binary({ascii("x")}, "\x10\x05")},
        {"no such object", binary({array({9})})},
        {"text beyond the end", binary({"\x5Ex"})},
        {"a count that wraps", binary({"\xAF\x13" + bigEndian(UINT64_MAX / 4 + 1, 8)})},
        {"offsets of no size", changed(26, bigEndian(0, 1))},
        {"an object count that wraps", changed(24, bigEndian(UINT64_MAX / 4 + 2, 8))},
        {"a table beyond the end", changed(8, bigEndian(UINT64_MAX - 3, 8))},
    };
    for (const auto& [what, bytes] : cases)
        EXPECT_EQ(textIn(bytes), "no list") << what;
}

TEST(PropertyList, AGoodListWithAnyByteCutOffOrChangedNeverHarms) {
    const auto good = binary({array({3, 4}), ascii("x"), object(0x6, 1, "\x20\xAC")});
    for (std::size_t size = 0; size < good.size(); ++size)
        EXPECT_EQ(textIn(std::string(good, 0, size)), "no list") << size;
    for (std::size_t i = 0; i < good.size() * 256; ++i) {
        auto changed = good;
        changed[i / 256] = static_cast<char>(i % 256);
        (void)textIn(changed);
    }
    const auto document = xml("<string>x</string>");
    for (std::size_t size = 0; size < document.find("</dict>"); ++size)
        EXPECT_EQ(textIn(document.substr(0, size)), "no list") << size;
}

} // namespace
} // namespace veridane
