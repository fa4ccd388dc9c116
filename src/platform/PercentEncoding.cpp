#include "platform/PercentEncoding.h"

namespace veridane {
namespace {

bool stays(char c, std::string_view punctuation) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           punctuation.find(c) != std::string_view::npos;
}

} // namespace

std::string percentEncoded(std::string_view text, PercentEncoding encoding) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const std::string_view punctuation =
        encoding == PercentEncoding::urlQuery ? "-._~!$&'()*+,;=:@/?" : "-._~";
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (stays(c, punctuation)) {
            result += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        result += '%';
        result += digits[byte >> 4];
        result += digits[byte & 15];
    }
    return result;
}

} // namespace veridane
