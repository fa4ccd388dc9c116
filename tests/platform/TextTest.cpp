#include "platform/Text.h"

#include "platform/Date.h"
#include "platform/Language.h"
#include "platform/Locale.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace veridane {
namespace {

const std::string replacement = "\uFFFD";
const std::string noBreakSpace = "\u00A0";

using Operation = std::string (*)(std::string_view);

TEST(Text, EachOperationGivesValidTextByUnicodesRules) {
    const struct {
        Operation operation;
        std::string given, expected;
    } cases[] = {
        {text::validUtf8, "Übung 日本 \U0001F600", "Übung 日本 \U0001F600"},
        {text::validUtf8,
         "a\xFF"
         "b",
         "a" + replacement + "b"},
        {text::validUtf8, "cut \xE6\x97", "cut " + replacement},
        {text::validUtf8, "\xC0\xAF", replacement + replacement}, // "/" in too many bytes
        {text::validUtf8, "\xED\xA0\x80", replacement + replacement + replacement}, // a surrogate
        {text::validUtf8, std::string("a\0b", 3), std::string("a\0b", 3)},
        {text::lowercased, "Foo.PLIST [Z]", "foo.plist [z]"},
        {text::lowercased, "ÄÖÜ ΑΒΓ \xFF", "äöü αβγ " + replacement},
        {text::lowercased, "TITLE İ", "title i\u0307"}, // a Turkish locale would drop the dots
        {text::capitalized, "action games", "Action Games"},
        {text::capitalized, "foo-bar foo_bar", "Foo-Bar Foo_Bar"},
        {text::capitalized, "EXAMPLE", "Example"},
        {text::capitalized, "1password don't", "1Password Don't"},
        {text::capitalized, "über ÉCOLE e\u0301cole", "Über École E\u0301cole"},
        {text::trimmed, " \t\u00A0\u3000a b\u2028\n", "a b"},
        {text::trimmed, " \u2003 ", ""},
        {text::printable, "plain ä 日本", "plain ä 日本"},
        {text::printable, "\x1B[2J\r\n\x7F",
         replacement + "[2J" + replacement + replacement + replacement},
        {text::printable, "a\u202Etxt.exe\u2028\u0085\u200B",
         "a" + replacement + "txt.exe" + replacement + replacement + replacement},
        {text::printable, "می\u200Cخواهم", "می\u200Cخواهم"}, // a joiner is part of the spelling
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.given);
        EXPECT_EQ(c.operation(c.given), c.expected);
    }
}

TEST(Text, AWidthIsThatOfATerminal) {
    const struct {
        const char* given;
        std::size_t width;
    } cases[] = {
        {"", 0},         {"abc", 3},
        {"Übung", 5},    {"U\u0308bung", 5},
        {"日本語", 6},   {"\uFF21\U0001F600", 4},
        {"한", 2},       {"\u1112\u1161\u11AB", 2}, // the same syllable, taken apart
        {"a\u200Bb", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.given);
        EXPECT_EQ(text::displayWidth(c.given), c.width);
    }
}

TEST(Collation, OrdersNamesAsPeopleDo) {
    const Collation german("de_DE");
    const struct {
        const char *before, *after;
    } pairs[] = {
        {"alpha", "Beta"}, {"Alpha", "beta"}, {"Apfel", "Äpfel"}, {"Äpfel", "Azur"},
        {"", "a"},         {"2", "a"},        {"Foo", "Foo Bar"}, {"o", "ö"},
    };
    for (const auto& pair : pairs) {
        SCOPED_TRACE(pair.before);
        EXPECT_LT(german.key(pair.before), german.key(pair.after));
    }
    EXPECT_EQ(german.key("ÄPFEL"), german.key("a\u0308pfel")) << "composed or not, in any case";
    EXPECT_LT(german.key("ö"), german.key("z"));
    EXPECT_LT(Collation("sv_SE").key("z"), Collation("sv_SE").key("ö")) << "a letter of its own";

    const std::string common(500, 'x');
    EXPECT_LT(german.key(common + "A"), german.key(common + "b")) << "beyond the usual length";
}

class UserLocale : public testing::Test {
protected:
    void TearDown() override {
        set("C", nullptr, "C");
        setLanguage(Language::german);
    }
    static void set(const char* all, const char* time, const char* lang) {
        put("LC_ALL", all);
        put("LC_TIME", time);
        put("LANG", lang);
    }

private:
    static void put(const char* name, const char* value) {
        if (value != nullptr)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
};

TEST_F(UserLocale, ComesFromTheEnvironmentOrTheLanguageInForce) {
    const struct {
        const char *all, *time, *lang, *expected;
    } cases[] = {
        {nullptr, nullptr, "fr_FR.UTF-8", "fr_FR"},
        {"", "de_AT.UTF-8", "en_US.UTF-8", "de_AT"},
        {"sv_SE", "de_DE", "en_US", "sv_SE"},
        {nullptr, nullptr, nullptr, "en"},
        {"C", nullptr, "fr_FR.UTF-8", "en"},
        {"C.UTF-8", nullptr, nullptr, "en"},
        {"POSIX", nullptr, nullptr, "en"},
        {"en_US_POSIX", nullptr, nullptr, "en"},
        {"../../etc/passwd", nullptr, nullptr, "en"},
    };
    setLanguage(Language::english);
    for (const auto& c : cases) {
        set(c.all, c.time, c.lang);
        EXPECT_EQ(userLocale(), c.expected);
    }
    setLanguage(Language::german);
    EXPECT_EQ(userLocale(), "de");
    set("C", nullptr, nullptr);
    EXPECT_LT(Collation().key("alpha"), Collation().key("Beta")) << "no capitals first";
}

TEST(Locale, DatesAndSizesReadAsInTheCountry) {
    const Date date = *parseISO8601("2027-03-01T09:30:59Z");
    EXPECT_EQ(formatDateTime(date, "de_DE", "Europe/Berlin"), "01.03.2027, 10:30");
    EXPECT_EQ(formatDateTime(date, "en_GB", "America/New_York"), "1 Mar 2027, 04:30");

    const struct {
        std::int64_t bytes;
        const char *german, *english;
    } sizes[] = {
        {0, "0 Byte", "0 bytes"},
        {512, "512 Byte", "512 bytes"},
        {1000, "1 kB", "1 kB"},
        {999'499, "999 kB", "999 kB"},
        {999'500, "1 MB", "1 MB"},
        {1'234'567, "1,2 MB", "1.2 MB"},
        {999'960'000, "1 GB", "1 GB"},
        {5'678'900'000, "5,68 GB", "5.68 GB"},
        {INT64_MAX, "9.223,37 PB", "9,223.37 PB"},
    };
    for (const auto& c : sizes) {
        const auto plain = [&](std::string text) {
            if (const auto blank = text.find(noBreakSpace); blank != std::string::npos)
                text.replace(blank, noBreakSpace.size(), " ");
            return text;
        };
        EXPECT_EQ(plain(formatByteCount(c.bytes, "de_DE")), c.german);
        EXPECT_EQ(plain(formatByteCount(c.bytes, "en_US")), c.english);
    }
}

TEST(Language, ATextIsShownInTheLanguageInForce) {
    EXPECT_EQ(localized("Benötigt Rosetta"), "Benötigt Rosetta");
    EXPECT_EQ(localized("Aktuell (%@)", "100 %@"), "Aktuell (100 %@)");
    setLanguage(Language::english);
    EXPECT_EQ(localized("Benötigt Rosetta"), "Needs Rosetta");
    EXPECT_EQ(localized("Aktuell (%@)", "1.2"), "Current (1.2)");
    EXPECT_EQ(localized("Aktuell (%@) …", "1.2"), "Aktuell (1.2) …") << "no entry";
    EXPECT_EQ(localized("%@ und %@", "a"), "a und %@");
    setLanguage(Language::german);
}

} // namespace
} // namespace veridane
