#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace veridane {

/// The user's locale, as an identifier such as "de_DE". An environment that names none (unset, C or
/// POSIX) or one that ICU does not know gives the language in force instead: sorting capitals first
/// or dates in a programmer's form would help nobody.
[[nodiscard]] std::string userLocale();

/// The locale that the environment names for texts, where it names one that ICU knows. People who
/// read English may still want their dates as at home.
[[nodiscard]] std::optional<std::string> userTextLocale();

/// The order of names as people expect it: by the locale's alphabet, with case playing no part.
/// Thread-compatible.
class Collation {
public:
    explicit Collation(const std::string& locale = userLocale());
    ~Collation();
    Collation(Collation&&) noexcept;
    Collation& operator=(Collation&&) noexcept;

    /// Bytes whose plain comparison orders texts; equal for texts that differ in case alone.
    [[nodiscard]] std::string key(std::string_view text) const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

/// A medium date and a short time, such as "01.03.2027, 10:30". An empty time zone means the
/// user's; else it is an identifier such as "Europe/Berlin".
[[nodiscard]] std::string formatDateTime(Date date, const std::string& locale = userLocale(),
                                         const std::string& timeZone = {});

/// The same with the month as an abbreviation, such as "1. März 2027, 10:30" or "Mar 1, 2027,
/// 10:30 AM".
[[nodiscard]] std::string formatAbbreviatedDateTime(Date date,
                                                    const std::string& locale = userLocale(),
                                                    const std::string& timeZone = {});

/// A medium date alone, such as "01.03.2027" or "Mar 1, 2027".
[[nodiscard]] std::string formatDate(Date date, const std::string& locale = userLocale(),
                                     const std::string& timeZone = {});

/// A size for people, in steps of 1000 and with the digits that a Mac shows: "512 Byte", "12 KB",
/// "1,2 MB", "3,45 GB".
[[nodiscard]] std::string formatByteCount(std::int64_t bytes,
                                          const std::string& locale = userLocale());

} // namespace veridane
