#include "platform/Date.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

using namespace std::chrono_literals;

TEST(Date, IsWrittenInUtcWithItsFractionDropped) {
    const struct {
        Date date;
        const char* text;
    } cases[] = {
        {Date(0s), "1970-01-01T00:00:00Z"},
        {Date(-1ns), "1969-12-31T23:59:59Z"}, // dropped is not rounded
        {Date(1'803'893'400s + 999'999'999ns), "2027-03-01T09:30:00Z"},
        {Date(951'782'400s), "2000-02-29T00:00:00Z"},
        {Date::max(), "2262-04-11T23:47:16Z"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(formatISO8601(c.date), c.text);
        EXPECT_EQ(parseISO8601(c.text), std::chrono::floor<std::chrono::seconds>(c.date));
    }
}

TEST(Date, IsReadInThisFormAlone) {
    const char* const refused[] = {
        "2027-03-01T09:30:00.5Z", "2027-03-01T09:30:00",  "2027-03-01T09:30:00z",
        "2027-3-01T09:30:00Z0",   "+027-03-01T09:30:00Z", "2027-02-29T00:00:00Z",
        "2027-13-01T00:00:00Z",   "2027-04-00T00:00:00Z", "2027-03-01T24:00:00Z",
        "2027-03-01T09:60:00Z",   "2027-03-01T09:30:60Z", "1677-09-21T00:12:43Z",
        "2262-04-11T23:47:17Z",   "9999-12-31T23:59:59Z", ""};
    for (const char* text : refused)
        EXPECT_FALSE(parseISO8601(text)) << text;
}

} // namespace
} // namespace veridane
