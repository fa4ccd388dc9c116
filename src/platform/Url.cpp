#include "platform/Url.h"

namespace veridane {
namespace {

bool isHexadecimal(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool mayStandInUrl(char c) {
    constexpr std::string_view punctuation = "-._~:/?#[]@!$&'()*+,;=";
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           punctuation.find(c) != std::string_view::npos;
}

bool isEscape(std::string_view text) {
    return text.size() >= 3 && text[0] == '%' && isHexadecimal(text[1]) && isHexadecimal(text[2]);
}

} // namespace

std::optional<Url> Url::parse(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (!mayStandInUrl(text[i]) && !isEscape(text.substr(i)))
            return std::nullopt;
    return Url(text);
}

} // namespace veridane
