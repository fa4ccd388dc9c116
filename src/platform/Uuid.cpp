#include "platform/Uuid.h"

#include <sys/random.h>

#include <cstdlib>

namespace veridane {
namespace {

constexpr std::size_t textLength = 36;

constexpr bool isHyphenPosition(std::size_t index) {
    return index == 8 || index == 13 || index == 18 || index == 23;
}

std::optional<std::uint8_t> hexadecimalValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint8_t>(digit - '0');
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint8_t>(digit - 'a' + 10);
    return std::nullopt;
}

} // namespace

Uuid Uuid::random() {
    Uuid uuid;
    // Fails only where the system forbids the call. Two objects of one identity would take each
    // other's results, so that going on is no answer.
    if (getentropy(uuid.m_bytes.data(), uuid.m_bytes.size()) != 0)
        std::abort();
    uuid.m_bytes[6] = static_cast<std::uint8_t>((uuid.m_bytes[6] & 0x0F) | 0x40); // version 4
    uuid.m_bytes[8] = static_cast<std::uint8_t>((uuid.m_bytes[8] & 0x3F) | 0x80); // variant 10
    return uuid;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != textLength)
        return std::nullopt;
    Uuid uuid;
    std::size_t digits = 0;
    for (std::size_t i = 0; i < textLength; ++i) {
        if (isHyphenPosition(i)) {
            if (text[i] != '-')
                return std::nullopt;
            continue;
        }
        const auto value = hexadecimalValue(text[i]);
        if (!value)
            return std::nullopt;
        std::uint8_t& byte = uuid.m_bytes[digits / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | *value);
        ++digits;
    }
    return uuid;
}

std::string Uuid::text() const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(textLength);
    for (const std::uint8_t byte : m_bytes) {
        if (isHyphenPosition(text.size()))
            text += '-';
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

} // namespace veridane
