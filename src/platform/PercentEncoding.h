#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace veridane {

/// Which characters stay as they are besides the ASCII letters, the digits and "-._~".
enum class PercentEncoding : std::uint8_t {
    fileName, // none: what comes out is safe as a name on every file system
    urlQuery, // what else a URL's query may hold (RFC 3986): "!$&'()*+,;=" and ":@/?"
};

/// The text with every other byte as "%" and two upper-case hexadecimal digits. A percent sign is
/// always escaped, so that two texts never give the same. An ampersand that is part of a value in a
/// query stays an ampersand: the caller knows where one would split it.
[[nodiscard]] std::string percentEncoded(std::string_view text, PercentEncoding encoding);

} // namespace veridane
