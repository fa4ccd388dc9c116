#include "platform/Text.h"

#include "platform/UnicodeStrings.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

namespace veridane::text {
namespace {

using unicode::decoded;
using unicode::encoded;

constexpr UChar32 replacementCharacter = 0xFFFD;
constexpr UChar32 zeroWidthNonJoiner = 0x200C;
constexpr UChar32 zeroWidthJoiner = 0x200D;

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isPrintableAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

template <typename Visit>
void forEachCharacter(const icu::UnicodeString& text, Visit visit) {
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1))
        visit(text.char32At(i));
}

bool isHarmless(UChar32 character) {
    // The joiners belong to the spelling of Persian and to emoji, and move nothing on the screen.
    if (character == zeroWidthNonJoiner || character == zeroWidthJoiner)
        return true;
    switch (u_charType(character)) {
    case U_CONTROL_CHAR:
    case U_FORMAT_CHAR: // the marks that turn the direction of the text around are among them
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
        return false;
    default:
        return true;
    }
}

std::size_t columns(UChar32 character) {
    switch (u_charType(character)) {
    case U_CONTROL_CHAR:
    case U_FORMAT_CHAR:
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
        return 0;
    default:
        break;
    }
    // A Mac's disk holds Korean names taken apart; the vowel and the final join the first letter.
    const int32_t syllable = u_getIntPropertyValue(character, UCHAR_HANGUL_SYLLABLE_TYPE);
    if (syllable == U_HST_VOWEL_JAMO || syllable == U_HST_TRAILING_JAMO)
        return 0;
    const int32_t width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

// ICU's macro narrows integers inside.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
UChar32 takeCharacter(std::string_view text, std::size_t& offset) {
    UChar32 character = 0;
    U8_NEXT_OR_FFFD(text.data(), offset, text.size(), character);
    return character;
}
#pragma GCC diagnostic pop

/// Where the first character from `from` on begins that is a number character, or else is none.
std::size_t findNumberCharacter(std::string_view text, std::size_t from, bool isNumber) {
    while (from < text.size()) {
        std::size_t next = from;
        const UChar32 character = takeCharacter(text, next);
        if ((u_getIntPropertyValue(character, UCHAR_NUMERIC_TYPE) != U_NT_NONE) == isNumber)
            break;
        from = next;
    }
    return from;
}

} // namespace

std::string validUtf8(std::string_view bytes) {
    return isAscii(bytes) ? std::string(bytes) : encoded(decoded(bytes));
}

std::string lowercased(std::string_view text) {
    if (!isAscii(text))
        return encoded(decoded(text).toLower(icu::Locale::getRoot()));
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

// In UTF-8 no character occurs inside of another one. Several times as fast as the search of
// std::string_view, which is felt where all texts of a window are searched at each keystroke.
bool contains(std::string_view text, std::string_view part) {
    return part.empty() || ::memmem(text.data(), text.size(), part.data(), part.size());
}

std::string capitalized(std::string_view text) {
    icu::UnicodeString result;
    bool insideWord = false;
    forEachCharacter(decoded(text), [&](UChar32 character) {
        result.append(insideWord ? u_tolower(character) : u_totitle(character));
        // A digit or a hyphen begins a word anew ("1Password", "Foo-Bar"), an apostrophe or an
        // accent does not ("Don't").
        if (!u_hasBinaryProperty(character, UCHAR_CASE_IGNORABLE))
            insideWord = u_hasBinaryProperty(character, UCHAR_CASED);
    });
    return encoded(result);
}

std::string trimmed(std::string_view text) {
    const icu::UnicodeString characters = decoded(text);
    int32_t begin = 0;
    int32_t end = characters.length();
    // All white space lies in the first plane, so single units will do.
    while (begin < end && u_isUWhiteSpace(characters.charAt(begin)))
        ++begin;
    while (begin < end && u_isUWhiteSpace(characters.charAt(end - 1)))
        --end;
    return encoded(characters.tempSubStringBetween(begin, end));
}

std::optional<std::string_view> takeNumberRun(std::string_view& text) {
    const std::size_t begin = findNumberCharacter(text, 0, true);
    const std::size_t end = findNumberCharacter(text, begin, false);
    const std::string_view run = text.substr(begin, end - begin);
    text.remove_prefix(end);
    if (run.empty())
        return std::nullopt;
    return run;
}

std::string printable(std::string_view text) {
    if (isPrintableAscii(text))
        return std::string(text);
    icu::UnicodeString result;
    forEachCharacter(decoded(text), [&](UChar32 character) {
        result.append(isHarmless(character) ? character : replacementCharacter);
    });
    return encoded(result);
}

std::size_t displayWidth(std::string_view text) {
    if (isPrintableAscii(text))
        return text.size();
    std::size_t width = 0;
    forEachCharacter(decoded(text), [&](UChar32 character) { width += columns(character); });
    return width;
}

} // namespace veridane::text
