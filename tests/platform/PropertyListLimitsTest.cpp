#include "platform/PropertyList.h"

#include <gtest/gtest.h>

TEST(PropertyList, IsReadUpToItsLimits) {
    using veridane::PropertyList;
    const auto textIn = [](const std::string& value, std::string bytes = "", int zero = 2) {
        for (const char c : "<plist><dict><key>a</key>" + value + "</dict></plist>")
            bytes += std::string(zero == 0, '\0') + c + std::string(zero == 1, '\0');
        const auto list = PropertyList::parse(veridane::bytesOf(bytes));
        return list ? list->text("a").value_or("no text") : "no list";
    };
    const std::string x(PropertyList::maxTextSize, 'x');
    EXPECT_EQ(textIn("<string>x</string>", "\xFE\xFF", 0), "x");
    EXPECT_EQ(textIn("<string>x</string>", "\xFF\xFE", 1), "x");
    EXPECT_EQ(textIn("<string>" + x + "</string>"), x);
    EXPECT_EQ(textIn("<string>x" + x + "</string>"), "no text");
    std::string keys, dictionaries, begin, end;
    for (int i = 0; i < 12'000;
         ++i, begin += "<array>", end += "</array>", keys += "<key>b</key><true/>")
        dictionaries += "<dict><key>b</key><true/></dict>";
    EXPECT_EQ(textIn("<array>" + dictionaries + "</array>"), "no text") << "keys of many";
    EXPECT_EQ(textIn("<dict>" + keys + "</dict>"), "no list") << "each sought among all";
    EXPECT_EQ(textIn("<?>" + begin + "<?><?>" + end + "<?>"), "no list") << "\"<?>\" hides none";
}
