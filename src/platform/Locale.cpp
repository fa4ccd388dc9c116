#include "platform/Locale.h"

#include "platform/Environment.h"
#include "platform/Language.h"
#include "platform/Text.h"
#include "platform/UnicodeStrings.h"

#include <unicode/coll.h>
#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>
#include <unicode/timezone.h>
#include <unicode/ures.h>

#include <array>
#include <chrono>

namespace veridane {
namespace {

using unicode::decoded;
using unicode::encoded;

std::string localeOfLanguage() {
    return std::string(languageCode(language()));
}

/// Whether ICU has data for a language. It formats for any other all the same, in a form that
/// nobody uses ("2027 M03 1").
bool isKnown(std::string_view code) {
    // By length first: the code may be anything, but names a resource below.
    if (code.size() != 2 && code.size() != 3)
        return false;
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUResourceBundlePointer data(
        ures_openDirect(nullptr, std::string(code).c_str(), &status));
    return U_SUCCESS(status);
}

/// The identifier for a locale as POSIX spells it ("de_DE.UTF-8"); nothing for C and POSIX, with or
/// without an encoding, and for what is no locale at all.
std::optional<std::string> localeNamed(const char* posixName) {
    const auto locale = icu::Locale::createCanonical(posixName);
    const bool isReal = !locale.isBogus() && isKnown(locale.getLanguage()) &&
                        std::string_view(locale.getVariant()) != "POSIX";
    return isReal ? std::optional<std::string>(locale.getName()) : std::nullopt;
}

/// What the environment says of one of its categories.
std::optional<std::string> localeOf(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        if (const auto value = Environment::variable(variable))
            return localeNamed(value->c_str());
    }
    return std::nullopt;
}

std::string formatted(icu::DateFormat& format, Date date, const std::string& timeZone) {
    if (!timeZone.empty())
        format.adoptTimeZone(icu::TimeZone::createTimeZone(decoded(timeZone)));
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(date);
    icu::UnicodeString text;
    format.format(static_cast<UDate>(milliseconds.time_since_epoch().count()), text);
    // Newer data put this narrow blank before "AM", where a Mac shows an ordinary one.
    return encoded(text.findAndReplace(u"\u202F", u" "));
}

} // namespace

std::string userLocale() {
    // LC_TIME rather than LC_COLLATE: many a developer keeps the latter at C for the sake of sort.
    return localeOf("LC_TIME").value_or(localeOfLanguage());
}

std::optional<std::string> userTextLocale() {
    return localeOf("LC_MESSAGES");
}

struct Collation::Implementation {
    std::unique_ptr<icu::Collator> collator; // none where ICU lacks its data
};

Collation::Collation(const std::string& locale)
    : m_implementation(std::make_unique<Implementation>()) {
    UErrorCode status = U_ZERO_ERROR;
    auto& collator = m_implementation->collator;
    collator.reset(icu::Collator::createInstance(icu::Locale(locale.c_str()), status));
    if (U_FAILURE(status))
        collator.reset();
    // The second level tells accents apart, only the third one case.
    if (collator)
        collator->setStrength(icu::Collator::SECONDARY);
}

Collation::~Collation() = default;
Collation::Collation(Collation&&) noexcept = default;
Collation& Collation::operator=(Collation&&) noexcept = default;

std::string Collation::key(std::string_view text) const {
    const auto& collator = m_implementation->collator;
    if (!collator)
        return text::lowercased(text);

    const auto characters = decoded(text);
    std::array<std::uint8_t, 128> usual{}; // names are short: one call is enough for nearly all
    const int32_t size =
        collator->getSortKey(characters, usual.data(), static_cast<int32_t>(usual.size()));
    if (size <= static_cast<int32_t>(usual.size()))
        return std::string(usual.begin(), usual.begin() + size);
    std::string key(static_cast<std::size_t>(size), '\0');
    collator->getSortKey(characters, reinterpret_cast<std::uint8_t*>(key.data()), size);
    return key;
}

std::string formatDateTime(Date date, const std::string& locale, const std::string& timeZone) {
    const std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createDateTimeInstance(
        icu::DateFormat::MEDIUM, icu::DateFormat::SHORT, icu::Locale(locale.c_str())));
    return format ? formatted(*format, date, timeZone) : formatISO8601(date);
}

std::string formatAbbreviatedDateTime(Date date, const std::string& locale,
                                      const std::string& timeZone) {
    UErrorCode status = U_ZERO_ERROR;
    // "j" stands for the hour as the locale counts it, to 12 or to 24.
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createInstanceForSkeleton("yMMMdjm", icu::Locale(locale.c_str()), status));
    return U_SUCCESS(status) && format ? formatted(*format, date, timeZone) : formatISO8601(date);
}

std::string formatDate(Date date, const std::string& locale, const std::string& timeZone) {
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateInstance(icu::DateFormat::MEDIUM, icu::Locale(locale.c_str())));
    return format ? formatted(*format, date, timeZone) : formatISO8601(date);
}

std::string formatByteCount(std::int64_t bytes, const std::string& locale) {
    const struct {
        icu::MeasureUnit unit;
        UNumberUnitWidth width; // "512 bytes", but "12 KB"
        int digits;             // behind the point
    } steps[] = {
        {icu::MeasureUnit::getByte(), UNUM_UNIT_WIDTH_FULL_NAME, 0},
        {icu::MeasureUnit::getKilobyte(), UNUM_UNIT_WIDTH_SHORT, 0},
        {icu::MeasureUnit::getMegabyte(), UNUM_UNIT_WIDTH_SHORT, 1},
        {icu::MeasureUnit::getGigabyte(), UNUM_UNIT_WIDTH_SHORT, 2},
        {icu::MeasureUnit::getTerabyte(), UNUM_UNIT_WIDTH_SHORT, 2},
        {icu::MeasureUnit::getPetabyte(), UNUM_UNIT_WIDTH_SHORT, 2},
    };
    // From here on rounding gives "1,000", which is better said in the next unit.
    constexpr double nextUnit = 999.5;
    auto value = static_cast<double>(bytes);
    const auto* step = std::begin(steps);
    while (value >= nextUnit && step + 1 != std::end(steps)) {
        value /= 1000;
        ++step;
    }

    UErrorCode status = U_ZERO_ERROR;
    const auto formatted = icu::number::NumberFormatter::withLocale(icu::Locale(locale.c_str()))
                               .unit(step->unit)
                               .unitWidth(step->width)
                               .precision(icu::number::Precision::maxFraction(step->digits))
                               .formatDouble(value, status);
    auto text = formatted.toString(status);
    text.findAndReplace("kB", "KB"); // as a Mac writes it in every language
    return U_SUCCESS(status) ? encoded(text) : std::to_string(bytes);
}

} // namespace veridane
