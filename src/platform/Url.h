#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace veridane {

/// A text that is known to be a URI reference as RFC 3986 writes them: nothing but the characters
/// that may stand in one, each "%" followed by two hexadecimal digits. It may still lack a scheme
/// or a host, or name a scheme that nobody serves.
class Url {
public:
    /// Nothing for an empty text, blanks, control characters, anything outside of ASCII, and other
    /// characters that cannot stand in a URL as they are. The text is kept as it is written.
    [[nodiscard]] static std::optional<Url> parse(std::string_view text);

    [[nodiscard]] const std::string& text() const { return m_text; }

    bool operator==(const Url&) const = default;

private:
    explicit Url(std::string_view text) : m_text(text) {}

    std::string m_text;
};

} // namespace veridane
