#pragma once

#include "model/Recommendation.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace veridane::cli {

/// Emphasis on a terminal that wants it (ECMA-48 sequences), and plain text elsewhere.
class Style {
public:
    explicit Style(bool coloured) : m_coloured(coloured) {}

    [[nodiscard]] std::string bold(std::string_view text) const { return wrapped("1", text); }
    [[nodiscard]] std::string dim(std::string_view text) const { return wrapped("2", text); }
    [[nodiscard]] std::string inColourOf(Urgency urgency, std::string_view text) const;

private:
    [[nodiscard]] std::string wrapped(std::string_view sequence, std::string_view text) const;

    bool m_coloured;
};

/// Printable text of at most `width` columns (one or more); where it is cut, "…" tells so.
[[nodiscard]] std::string clipped(std::string_view text, std::size_t width);

/// Printable text, filled with blanks to `width` columns.
[[nodiscard]] std::string padded(std::string_view text, std::size_t width);

} // namespace veridane::cli
