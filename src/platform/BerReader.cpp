#include "platform/BerReader.h"

#include <openssl/asn1.h>

namespace veridane {
namespace {

constexpr int maxOpenElements = 32; // of indefinite length, one in the other
constexpr int maxStringDepth = 4;   // of a string that is put together from pieces
constexpr std::size_t endMarkerSize = 2;

} // namespace

bool BerElement::isUniversal(int wanted) const {
    return tag == wanted && tagClass == V_ASN1_UNIVERSAL;
}

bool BerElement::isContext(int wanted) const {
    return tag == wanted && tagClass == V_ASN1_CONTEXT_SPECIFIC;
}

BerElement BerReader::next() {
    BerElement element = header(m_rest);
    if (!element)
        return {};
    if (element.isIndefinite) {
        const auto size = sizeBeforeEnd(element.content);
        if (!size)
            return {};
        const std::size_t headerSize = m_rest.size() - element.content.size();
        element.content = *element.content.slice(0, *size);
        element.whole = *m_rest.slice(0, headerSize + *size + endMarkerSize);
    }
    m_rest = m_rest.from(element.whole.size());
    return element;
}

BerElement BerReader::nextUniversal(int tag) {
    const BerElement element = next();
    return element.isUniversal(tag) ? element : BerElement();
}

BerReader BerReader::in(const BerElement& element) const {
    return {element.isConstructed ? element.content : ByteView(), *m_budget};
}

std::string BerReader::octets(const BerElement& string, int depth) const {
    if (!string.isConstructed)
        return std::string(string.content.text());
    if (depth == maxStringDepth)
        return {};
    std::string result;
    BerReader pieces = in(string);
    while (const BerElement piece = pieces.nextUniversal(V_ASN1_OCTET_STRING))
        result += octets(piece, depth + 1);
    return result;
}

/// The element that `bytes` begin with. One of indefinite length is given everything that follows.
BerElement BerReader::header(ByteView bytes) {
    if (bytes.empty() || *m_budget <= 0)
        return {};
    --*m_budget;
    BerElement element;
    const unsigned char* at = bytes.data();
    long length = 0;
    const int form = ASN1_get_object(&at, &length, &element.tag, &element.tagClass,
                                     static_cast<long>(bytes.size()));
    constexpr int failed = 0x80, indefinite = 1;
    if ((form & failed) != 0)
        return {};
    element.isConstructed = (form & V_ASN1_CONSTRUCTED) != 0;
    element.isIndefinite = (form & indefinite) != 0;
    const auto headerSize = static_cast<std::size_t>(at - bytes.data());
    const auto size =
        element.isIndefinite ? bytes.size() - headerSize : static_cast<std::size_t>(length);
    const auto content = bytes.slice(headerSize, size);
    if (!content)
        return {};
    element.content = *content;
    element.whole = *bytes.slice(0, headerSize + size);
    return element;
}

/// How many bytes stand in front of the marker that ends an element of indefinite length.
std::optional<std::size_t> BerReader::sizeBeforeEnd(ByteView bytes) {
    int open = 1;
    ByteView rest = bytes;
    while (const BerElement element = header(rest)) {
        const bool isEndMarker =
            element.isUniversal(V_ASN1_EOC) && element.whole.size() == endMarkerSize;
        if (isEndMarker && --open == 0)
            return bytes.size() - rest.size();
        if (element.isIndefinite && ++open > maxOpenElements)
            return std::nullopt;
        rest = element.isIndefinite ? element.content : rest.from(element.whole.size());
    }
    return std::nullopt;
}

} // namespace veridane
