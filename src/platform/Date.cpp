#include "platform/Date.h"

#include <array>
#include <cstdio>

namespace veridane {
namespace {

using namespace std::chrono;

constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:ddZ"; // d stands for a digit

bool matchesPattern(std::string_view text) {
    if (text.size() != pattern.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (pattern[i] == 'd' ? !isDigit : text[i] != pattern[i])
            return false;
    }
    return true;
}

int number(std::string_view digits) {
    int value = 0;
    for (const char digit : digits)
        value = value * 10 + (digit - '0');
    return value;
}

} // namespace

Date now() {
    return time_point_cast<nanoseconds>(system_clock::now());
}

std::string formatISO8601(Date date) {
    // Not a cast: it would round instants before 1970 up to the next second.
    const auto instant = floor<seconds>(date);
    const auto midnight = floor<days>(instant);
    const year_month_day day(midnight);
    const hh_mm_ss time(instant - midnight);
    std::array<char, 64> buffer{};
    const int length = std::snprintf(
        buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
        static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
        static_cast<unsigned>(day.day()), static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return {buffer.data(), static_cast<std::size_t>(length)};
}

std::optional<Date> parseISO8601(std::string_view text) {
    if (!matchesPattern(text))
        return std::nullopt;
    const year_month_day day(year(number(text.substr(0, 4))),
                             month(static_cast<unsigned>(number(text.substr(5, 2)))),
                             std::chrono::day(static_cast<unsigned>(number(text.substr(8, 2)))));
    const int hour = number(text.substr(11, 2));
    const int minute = number(text.substr(14, 2));
    const int second = number(text.substr(17, 2));
    if (!day.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;

    const sys_seconds instant = sys_days(day) + hours(hour) + minutes(minute) + seconds(second);
    // Four digits reach further than nanoseconds in 64 bits.
    if (instant < ceil<seconds>(Date::min()) || instant > floor<seconds>(Date::max()))
        return std::nullopt;
    return Date(instant);
}

} // namespace veridane
