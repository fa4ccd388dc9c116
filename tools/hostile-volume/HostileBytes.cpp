#include "hostile-volume/HostileBytes.h"

#include "support/MachOBuilder.h"
#include "support/PlistBuilder.h"

#include <string_view>

namespace veridane::test {
namespace {

constexpr std::size_t megabyte = 1'000'000;

Bytes bytesOf(std::string_view text) {
    return Bytes(text.begin(), text.end());
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    result.reserve(text.size() * times);
    while (times-- > 0)
        result += text;
    return result;
}

/// A list with anything as the value of its only key.
Bytes xml(const std::string& value, std::string_view declaration = "") {
    return bytesOf("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + std::string(declaration) +
                   "<plist version=\"1.0\"><dict><key>CFBundleName</key>" + value +
                   "</dict></plist>\n");
}

/// An array in a binary list, which names its elements by their numbers.
Bytes array(std::initializer_list<std::size_t> elements) {
    Bytes bytes{static_cast<std::uint8_t>(0xA0 + elements.size())};
    append(bytes, bigEndian(elements));
    return bytes;
}

/// A binary list that begins with {"CFBundleName": the first of `values`}. Of those the first is
/// number 2.
Bytes binary(const std::vector<Bytes>& values) {
    constexpr std::string_view key = "CFBundleName";
    Bytes dictionary{0xD1}, text{static_cast<std::uint8_t>(0x50 + key.size())};
    append(dictionary, bigEndian({1, 2}));
    append(text, bytesOf(key));
    std::vector<Bytes> objects{dictionary, text};
    objects.insert(objects.end(), values.begin(), values.end());

    Bytes bytes = bytesOf("bplist00"), offsets;
    for (const Bytes& object : objects) {
        append(offsets, bigEndian({bytes.size()}));
        append(bytes, object);
    }
    const std::size_t table = bytes.size();
    append(bytes, offsets);
    append(bytes, {0, 0, 0, 0, 0, 0, 4, 4});
    append(bytes, bigEndian({0, objects.size(), 0, 0, 0, table}));
    return bytes;
}

/// A chain of arrays, each of which holds the next one as often as `times` says.
Bytes chain(std::size_t length, bool isDoubled) {
    std::vector<Bytes> values;
    for (std::size_t next = 3; next < length + 2; ++next)
        values.push_back(isDoubled ? array({next, next}) : array({next}));
    values.push_back({0x09});
    return binary(values);
}

Bytes sharedText() {
    Bytes text{0x5F, 0x12};
    append(text, bigEndian({megabyte}));
    text.resize(text.size() + megabyte, 'x');
    return binary({array({3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3}), array({4, 4, 4, 4, 4, 4}),
                   array({5, 5, 5, 5, 5, 5}), text});
}

Bytes universal(bool isWide = false) {
    return universalMachO({Slice::x86_64, Slice::arm64}, isWide);
}

} // namespace

std::vector<HostileFile> hostileLists() {
    std::string entities, dictionaries = "<dict>";
    for (int i = 1; i < 40; ++i)
        entities += "<!ENTITY e" + std::to_string(i) + " \"&e" + std::to_string(i - 1) + ";&e" +
                    std::to_string(i - 1) + ";\">";
    for (int i = 0; i < 40'000; ++i)
        dictionaries += "<key>" + std::to_string(i) + "</key><true/>";
    return {
        {"list that holds itself", binary({array({0})})},
        {"list that doubles", chain(60, true)},
        {"list of a hundred thousand levels", chain(100'000, false)},
        {"list of one text many times", sharedText()},
        {"list of more than there is", binary({{0xAF, 0x13, 0x3F, 255, 255, 255, 255, 255, 255}})},
        {"list of text beyond the end", binary({{0x5F, 0x13, 0, 0, 0, 255, 255, 255, 255, 255}})},
        {"list of declared entities",
         xml("<string>&e39;</string>", "<!DOCTYPE plist [<!ENTITY e0 \"x\">" + entities + "]>")},
        {"list of an outside entity",
         xml("<string>&e;</string>", "<!DOCTYPE plist [<!ENTITY e SYSTEM \"/etc/passwd\">]>")},
        {"list of a hundred thousand arrays",
         xml(repeated("<array>", 100'000) + repeated("</array>", 100'000))},
        {"list of unclosed arrays", xml(repeated("<array>", 100'000))},
        {"list of entities", xml("<string>" + repeated("&amp;", 200'000) + "</string>")},
        {"list of keys", xml(dictionaries + "</dict>")},
        {"list in a comment", bytesOf("<plist><!-- " + repeated("<dict>", 1000))},
        {"list with a zero", bytesOf(std::string("<plist><dict><k\0y>", 18))},
    };
}

std::vector<HostileFile> oddLists() {
    const std::string huge(megabyte, 'h'), most(4096, 'm');
    return {
        {"name of a megabyte", plistFile(PlistDictionary{{"CFBundleName", huge},
                                                         {"CFBundleIdentifier", huge},
                                                         {"CFBundleExecutable", huge},
                                                         {"LSApplicationCategoryType", huge}})},
        {"longest name", plistFile(PlistDictionary{{"CFBundleName", most},
                                                   {"CFBundleIdentifier", "com." + most},
                                                   {"CFBundleShortVersionString", most}})},
        {"name that is no text",
         plistFile(PlistDictionary{{"CFBundleName", PlistList{"x"}}, {"SUFeedURL", true}},
                   PlistForm::binary)},
        {"name that moves the cursor",
         plistFile(PlistDictionary{{"CFBundleName", "\x1b[2J\x1b]0;x\x07\r\n\xE2\x80\xAE"},
                                   {"CFBundleIdentifier", "com.\x1b[31m.\t\"; \\"}},
                   PlistForm::binary)},
        {"name of half a character", xml("<string>M\xC3</string>")},
        {"name with a zero", binary({{0x53, 'a', 0, 'b'}})},
        {"name far outside",
         plistFile(PlistDictionary{{"CFBundleExecutable", "../../../../../../../../etc/passwd"},
                                   {"SUFeedURL", "file:///etc/passwd"}})},
    };
}

std::vector<HostileFile> hostileHeaders() {
    constexpr std::size_t first = 8, narrow = 20, wide = 32, offset = 8;
    const Bytes all(4, 0xFF), allWide(16, 0xFF), itself{0, 0, 0, 0}, page{0, 0, 0x40, 0};
    return {
        {"slices over each other", with(universal(), first + narrow + offset, page)},
        {"slice that is the file itself",
         with(with(universal(), first + offset, itself), first + narrow + offset, itself)},
        {"slices beyond the end",
         with(with(universal(), first + offset, all), first + narrow + offset, all)},
        {"slices larger than anything",
         with(with(universal(), first + offset + 4, all), first + narrow + offset + 4, all)},
        {"wide slices that wrap",
         with(with(universal(true), first + offset, allWide), first + wide + offset, allWide)},
        {"aligned to the impossible", with(universal(), first + narrow + offset + 8, all)},
    };
}

} // namespace veridane::test
