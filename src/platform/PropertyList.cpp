#include "platform/PropertyList.h"

#include "platform/FileSystem.h"
#include "platform/PropertyListGuard.h"
#include "platform/Text.h"
#include "platform/UnicodeStrings.h"

#include <plist/plist.h>

#include <cstdlib>

namespace veridane {
namespace {

constexpr std::string_view binaryMagic = "bplist";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view bigEndianMark = "\xFE\xFF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";

struct Free {
    void operator()(void* pointer) const { std::free(pointer); }
};

std::optional<std::string> textOf(plist_t node) {
    if (node == nullptr || plist_get_node_type(node) != PLIST_STRING)
        return std::nullopt;
    std::uint64_t size = 0;
    const char* bytes = plist_get_string_ptr(node, &size);
    if (size > PropertyList::maxTextSize)
        return std::nullopt;
    return text::validUtf8(std::string_view(bytes, static_cast<std::size_t>(size)));
}

/// UTF-16 behind its byte order mark, as UTF-8; half a character at the end is left out.
std::string fromUtf16(std::string_view content, bool isBigEndian) {
    const std::size_t high = isBigEndian ? 0 : 1;
    const auto length = static_cast<std::int32_t>(content.size() / 2); // far below 2^31
    icu::UnicodeString characters;
    char16_t* const units = characters.getBuffer(length);
    if (units == nullptr)
        return {};
    for (std::int32_t i = 0; i < length; ++i) {
        const auto pair = content.substr(static_cast<std::size_t>(i) * 2, 2);
        units[i] = static_cast<char16_t>(static_cast<unsigned char>(pair[high]) << 8 |
                                         static_cast<unsigned char>(pair[1 - high]));
    }
    characters.releaseBuffer(length);
    return unicode::encoded(characters);
}

plist_t rootOfXml(std::string_view text) {
    plist_t root = nullptr;
    if (PropertyListGuard::allowsXml(text))
        plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &root);
    return root;
}

plist_t rootOfBinary(std::string_view bytes) {
    plist_t root = nullptr;
    if (PropertyListGuard::allowsBinary(bytesOf(bytes)))
        plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    return root;
}

/// Null for what is no list. The mark of UTF-8 goes, as libplist takes it for text in front of the
/// list, and the encoding that a list declares is nothing to it.
plist_t rootOf(std::string_view content) {
    if (content.starts_with(binaryMagic))
        return rootOfBinary(content);
    if (content.starts_with(byteOrderMark))
        return rootOfXml(content.substr(byteOrderMark.size()));
    const bool isBigEndian = content.starts_with(bigEndianMark);
    if (isBigEndian || content.starts_with(littleEndianMark))
        return rootOfXml(fromUtf16(content.substr(bigEndianMark.size()), isBigEndian));
    return rootOfXml(content);
}

} // namespace

struct PropertyList::Implementation {
    Implementation() = default;
    Implementation(const Implementation&) = delete;
    Implementation& operator=(const Implementation&) = delete;
    ~Implementation() { plist_free(root); }

    /// The value under a key of the root, which keeps it; null if there is none.
    plist_t value(std::string_view key) const {
        return plist_dict_get_item(root, std::string(key).c_str());
    }

    plist_t root = nullptr;
};

PropertyList::PropertyList(std::unique_ptr<Implementation> implementation)
    : m_implementation(std::move(implementation)) {}
PropertyList::~PropertyList() = default;
PropertyList::PropertyList(PropertyList&&) noexcept = default;
PropertyList& PropertyList::operator=(PropertyList&&) noexcept = default;

std::optional<PropertyList> PropertyList::parse(ByteView bytes) {
    if (bytes.size() > maxFileSize)
        return std::nullopt;
    auto list = std::make_unique<Implementation>();
    list->root = rootOf(bytes.text());
    if (list->root == nullptr || plist_get_node_type(list->root) != PLIST_DICT)
        return std::nullopt;
    return PropertyList(std::move(list));
}

std::optional<PropertyList> PropertyList::read(const FileSystem& files, const Path& path) {
    const auto bytes = files.readWhole(path, maxFileSize);
    return bytes ? parse(ByteView(*bytes)) : std::nullopt;
}

std::optional<std::string> PropertyList::text(std::string_view key) const {
    return textOf(m_implementation->value(key));
}

std::optional<std::vector<std::string>> PropertyList::textList(std::string_view key) const {
    const plist_t list = m_implementation->value(key);
    if (list == nullptr || plist_get_node_type(list) != PLIST_ARRAY)
        return std::nullopt;
    // Asked for by its number, each element of a long list would be counted off anew.
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(list, &iterator);
    const std::unique_ptr<void, Free> owner(iterator);
    std::vector<std::string> texts;
    for (;;) {
        plist_t element = nullptr;
        plist_array_next_item(list, iterator, &element);
        if (element == nullptr)
            return texts;
        auto text = textOf(element);
        if (!text)
            return std::nullopt;
        texts.push_back(std::move(*text));
    }
}

} // namespace veridane
