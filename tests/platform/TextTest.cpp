#include "platform/Text.h"

#include "platform/Date.h"
#include "platform/Language.h"
#include "platform/Locale.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace veridane {
namespace {

TEST(Text, EachOperationGivesValidTextByUnicodesRules) {
    const struct {
        std::string (*operation)(std::string_view);
        std::string given, expected;
    } cases[] = {
        {text::validUtf8, "Übung 日本 \U0001F600", "Übung 日本 \U0001F600"},
        {text::validUtf8, "a\xFFz, cut \xE6\x97", "a\uFFFDz, cut \uFFFD"},
        {text::validUtf8, "\xC0\xAF \xED\xA0\x80", "\uFFFD\uFFFD \uFFFD\uFFFD\uFFFD"},
        {text::validUtf8, std::string("\xFF\0z", 3), std::string("\uFFFD\0z", 5)},
        {text::lowercased, "Foo.PLIST [Z]", "foo.plist [z]"},
        {text::lowercased, "ÄÖÜ ΑΒΓ TITLE\xFF", "äöü αβγ title\uFFFD"},
        {text::capitalized, "action games", "Action Games"},
        {text::capitalized, "foo-bar foo_bar EXAMPLE", "Foo-Bar Foo_Bar Example"},
        {text::capitalized, "1password don't e\u0301COLE über", "1Password Don't E\u0301cole Über"},
        {text::trimmed, " \t\u00A0\u3000a b\u2028\n", "a b"},
        {text::trimmed, " \u2003 ", ""},
        {text::printable, "\x1B[2Jä\r\n\x7F", "\uFFFD[2Jä\uFFFD\uFFFD\uFFFD"},
        {text::printable, "a\u202Etxt.exe\u2028\u0085", "a\uFFFDtxt.exe\uFFFD\uFFFD"},
        {text::printable, "می\u200Cخواهم", "می\u200Cخواهم"}, // a joiner is part of the spelling
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.given);
        EXPECT_EQ(c.operation(c.given), c.expected);
    }
    EXPECT_EQ(text::displayWidth("abc"), 3U);
    EXPECT_EQ(text::displayWidth("U\u0308bung\u200B"), 5U);
    EXPECT_EQ(text::displayWidth("日\uFF21\U0001F600"), 6U);
    EXPECT_EQ(text::displayWidth("\u1112\u1161\u11AB"), 2U) << "one Korean syllable, taken apart";
}

TEST(Collation, OrdersNamesAsPeopleDo) {
    const Collation german("de_DE");
    const std::string common(500, 'x'); // more than the usual length of a key
    const std::pair<std::string, std::string> pairs[] = {
        {"alpha", "Beta"}, {"Alpha", "beta"},  {"Apfel", "Äpfel"}, {"Äpfel", "Azur"},
        {"", "a"},         {"Foo", "Foo Bar"}, {"ö", "z"},         {common + "A", common + "b"},
    };
    for (const auto& [before, after] : pairs)
        EXPECT_LT(german.key(before), german.key(after)) << before;
    EXPECT_EQ(german.key("ÄPFEL"), german.key("a\u0308pfel")) << "composed or not, in any case";
    EXPECT_LT(Collation("sv_SE").key("z"), Collation("sv_SE").key("ö")) << "a letter of its own";
}

TEST(Locale, TheUsersComesFromTheEnvironmentOrTheLanguageInForce) {
    const auto localeWith = [](const char* all, const char* time, const char* lang) {
        setenv("LC_ALL", all, 1); // empty means unset
        setenv("LC_TIME", time, 1);
        setenv("LANG", lang, 1);
        return userLocale();
    };
    setLanguage(Language::english);
    EXPECT_EQ(localeWith("", "", "fr_FR.UTF-8"), "fr_FR");
    EXPECT_EQ(localeWith("", "de_AT.UTF-8", "en_US.UTF-8"), "de_AT");
    EXPECT_EQ(localeWith("sv_SE", "de_DE", "en_US"), "sv_SE");
    for (const char* none : {"", "C", "C.UTF-8", "POSIX", "en_US_POSIX", "../../etc/passwd"})
        EXPECT_EQ(localeWith(none, none, none), "en") << none;
    EXPECT_EQ(localeWith("C", "", "fr_FR.UTF-8"), "en");
    setLanguage(Language::german);
    EXPECT_EQ(localeWith("C", "", "C"), "de");
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
        {999'499, "999 kB", "999 kB"},
        {999'500, "1 MB", "1 MB"},
        {1'234'567, "1,2 MB", "1.2 MB"},
        {5'678'900'000, "5,68\u00A0GB", "5.68 GB"},
        {INT64_MAX, "9.223,37 PB", "9,223.37 PB"},
    };
    for (const auto& c : sizes) {
        EXPECT_EQ(formatByteCount(c.bytes, "de_DE"), c.german);
        EXPECT_EQ(formatByteCount(c.bytes, "en_US"), c.english);
    }
}

TEST(Language, ATextIsShownInTheLanguageInForce) {
    EXPECT_EQ(localized("Aktuell (%@)", "100 %@"), "Aktuell (100 %@)");
    setLanguage(Language::english);
    EXPECT_EQ(localized("Benötigt Rosetta"), "Needs Rosetta");
    EXPECT_EQ(localized("Aktuell (%@)", "1.2"), "Current (1.2)");
    EXPECT_EQ(localized("%@ und %@", "a"), "a und %@") << "no entry";
    setLanguage(Language::german);
}

} // namespace
} // namespace veridane
