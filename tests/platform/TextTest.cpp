#include "platform/Text.h"

#include "platform/Language.h"
#include "platform/Locale.h"
#include "platform/Path.h"
#include "platform/PercentEncoding.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <tuple>
#include <utility>

namespace veridane {
namespace {

TEST(Text, EachOperationGivesValidTextByUnicodesRules) {
    const std::tuple<std::string (*)(std::string_view), std::string, std::string> cases[] = {
        {text::validUtf8, "日\U0001F600 \xFFz, cut \xE6\x97", "日\U0001F600 \uFFFDz, cut \uFFFD"},
        {text::validUtf8, "\xC0\xAF \xED\xA0\x80", "\uFFFD\uFFFD \uFFFD\uFFFD\uFFFD"},
        {text::validUtf8, std::string("\xFF\0z", 3), std::string("\uFFFD\0z", 5)},
        {text::lowercased, "ÄÖÜ ΑΒΓ TITLE\xFF", "äöü αβγ title\uFFFD"},
        {text::capitalized, "foo-bar foo_bar EXAMPLE", "Foo-Bar Foo_Bar Example"},
        {text::capitalized, "1password don't e\u0301COLE über", "1Password Don't E\u0301cole Über"},
        {text::trimmed, " \t\u00A0\u3000a b\u2028\n", "a b"},
        {text::printable, "\x1B[2Jä\r\n\x7F", "\uFFFD[2Jä\uFFFD\uFFFD\uFFFD"},
        {text::printable, "a\u202Etxt.exe\u2028\u0085", "a\uFFFDtxt.exe\uFFFD\uFFFD"},
        {text::printable, "می\u200Cخواهم", "می\u200Cخواهم"}, // a joiner is part of the spelling
    };
    for (const auto& [operation, given, expected] : cases)
        EXPECT_EQ(operation(given), expected) << given;
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
        for (const auto& [name, value] :
             {std::pair("LC_ALL", all), {"LC_TIME", time}, {"LANG", lang}})
            setenv(name, value, 1); // empty means unset
        return userLocale();
    };
    setLanguage(Language::english);
    EXPECT_EQ(localeWith("", "", "fr_FR.UTF-8"), "fr_FR");
    EXPECT_EQ(localeWith("", "de_AT.UTF-8", "en_US.UTF-8"), "de_AT");
    EXPECT_EQ(localeWith("sv_SE", "de_DE", "en_US"), "sv_SE");
    for (const char* none : {"", "C.UTF-8", "POSIX", "en_US_POSIX", "../../etc/passwd", "xx_DE"})
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
    const std::tuple<const char*, const char*, const char*, const char*> abbreviated[] = {
        {"2026-03-14T08:41:00Z", "de", "Europe/Berlin", "14. März 2026, 09:41"},
        {"2027-01-02T09:30:00Z", "de_DE", "Europe/Berlin", "2. Jan. 2027, 10:30"},
        {"2026-03-14T08:41:00Z", "en", "Europe/Berlin", "Mar 14, 2026, 9:41 AM"},
        {"2026-07-14T23:05:00Z", "en_US", "UTC", "Jul 14, 2026, 11:05 PM"},
        {"2026-07-14T23:05:00Z", "en_GB", "UTC", "14 Jul 2026, 23:05"},
    };
    for (const auto& [instant, locale, zone, text] : abbreviated)
        EXPECT_EQ(formatAbbreviatedDateTime(*parseISO8601(instant), locale, zone), text);

    EXPECT_EQ(formatDate(date, "de", "Pacific/Kiritimati"), "01.03.2027");
    EXPECT_EQ(formatDate(date, "en", "Pacific/Pago_Pago"), "Feb 28, 2027") << "the day before";

    const std::tuple<std::int64_t, const char*, const char*> sizes[] = {
        {512, "512 Byte", "512 bytes"},
        {999'500, "1 MB", "1 MB"},
        {5'678'900'000, "5,68\u00A0GB", "5.68 GB"},
        {INT64_MAX, "9.223,37 PB", "9,223.37 PB"},
    };
    for (const auto& [bytes, german, english] : sizes) {
        EXPECT_EQ(formatByteCount(bytes, "de_DE"), german);
        EXPECT_EQ(formatByteCount(bytes, "en_US"), english);
    }
}

TEST(Language, ATextIsShownInTheLanguageInForce) {
    EXPECT_EQ(localized("Aktuell (%@)", "100 %@"), "Aktuell (100 %@)");
    setLanguage(Language::english);
    EXPECT_EQ(localized("Aktuell (%@)", "1.2"), "Current (1.2)");
    EXPECT_EQ(localized("%@ und %@", "a"), "a und %@") << "no entry";
    setLanguage(Language::german);
}

TEST(Date, IsWrittenInUtcWithItsFractionDropped) {
    using namespace std::chrono_literals;
    const std::pair<Date, const char*> cases[] = {
        {Date(0s), "1970-01-01T00:00:00Z"},
        {Date(-1ns), "1969-12-31T23:59:59Z"}, // dropped is not rounded
        {Date(1'803'893'400s + 999'999'999ns), "2027-03-01T09:30:00Z"},
        {Date::max(), "2262-04-11T23:47:16Z"},
    };
    for (const auto& [date, text] : cases) {
        EXPECT_EQ(formatISO8601(date), text);
        EXPECT_EQ(parseISO8601(text), std::chrono::floor<std::chrono::seconds>(date));
    }
}

TEST(Date, IsReadInThisFormAlone) {
    const char* const refused[] = {
        "2027-03-01T09:30:00.5Z", "2027-03-01T09:30:00",  "2027-03-01T09:30:00z",
        "2027-3-01T09:30:00Z0",   "+027-03-01T09:30:00Z", "2027-02-29T00:00:00Z",
        "2027-04-00T00:00:00Z",   "2027-03-01T24:00:00Z", "2027-03-01T09:60:00Z",
        "2027-03-01T09:30:60Z",   "1677-09-21T00:12:43Z", "2262-04-11T23:47:17Z"};
    for (const char* text : refused)
        EXPECT_FALSE(parseISO8601(text)) << text;
}

TEST(PercentEncoding, WhatStaysDependsOnThePlace) {
    // Of letters and digits the first and the last, and what stands beside them in ASCII.
    const std::string bytes("-._~/09:@AZ[`az{ !$&'()*+,;=?#%\"\0\xFF", 34);
    EXPECT_EQ(percentEncoded(bytes, PercentEncoding::fileName),
              "-._~%2F09%3A%40AZ%5B%60az%7B%20%21%24%26%27%28%29%2A%2B%2C%3B%3D%3F%23%25%22%00%FF");
    EXPECT_EQ(percentEncoded(bytes, PercentEncoding::urlQuery),
              "-._~/09:@AZ%5B%60az%7B%20!$&'()*+,;=?%23%25%22%00%FF");
}

TEST(Path, PartsOfANameAreThoseThatAMacSees) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"/Applications/Foo Bar.app/", "Foo Bar.app", "Foo Bar", "app"},
        {"/a//b.tar.gz", "b.tar.gz", "b.tar", "gz"},
        {"/.hidden", ".hidden", ".hidden", ""},
        {"/dot.", "dot.", "dot", ""},
        {"relative", "relative", "relative", ""},
        {"/", "/", "/", ""},
    };
    for (const auto& [given, name, stem, extension] : cases) {
        const Path path(given);
        EXPECT_EQ((std::tuple(path.name(), path.stem(), path.extension())),
                  (std::tuple(name, stem, extension)))
            << given;
    }
    EXPECT_EQ((Path("/A.app") / "/bin//sh/").bytes(), "/A.app/bin/sh");
    EXPECT_EQ((Path("/a") / "").bytes(), "/a");
    EXPECT_EQ(Path("/caf\xE9").text(), "/caf\uFFFD");
}

} // namespace
} // namespace veridane
