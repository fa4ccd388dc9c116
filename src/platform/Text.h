#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Unicode text. All text is UTF-8 in and out; invalid input is read as if each bad sequence were
/// U+FFFD, and what comes out is always valid. Safe on any thread.
namespace veridane::text {

/// The text itself if it is valid UTF-8, else with U+FFFD in place of each bad sequence.
[[nodiscard]] std::string validUtf8(std::string_view bytes);

/// Lower case by Unicode's rules alone, the same in every locale.
[[nodiscard]] std::string lowercased(std::string_view text);

/// Whether the part occurs in the text, character by character. Every text contains the empty one.
[[nodiscard]] bool contains(std::string_view text, std::string_view part);

/// Each word begins with a capital letter and goes on in lower case: "action games" gives
/// "Action Games". A word is a run of letters, so that "1password" gives "1Password".
[[nodiscard]] std::string capitalized(std::string_view text);

/// Without Unicode white space at both ends.
[[nodiscard]] std::string trimmed(std::string_view text);

/// Takes the first maximal run of number characters off the text, with all that stands before it;
/// nothing if there is none left. A number character is one with a Unicode numeric type: digits of
/// every script, fractions, Roman and Chinese numerals.
[[nodiscard]] std::optional<std::string_view> takeNumberRun(std::string_view& text);

/// Makes text harmless for a terminal or a log line: control, format and line-separating
/// characters become U+FFFD, save the joiners that some scripts and emoji are spelled with.
[[nodiscard]] std::string printable(std::string_view text);

/// Columns that the text takes in a terminal: 2 for wide characters, 0 for combining ones.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

} // namespace veridane::text
