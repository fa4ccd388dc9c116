#include "platform/PropertyList.h"

#include "platform/PropertyListGuard.h"
#include "platform/Text.h"

#include <plist/plist.h>

#include <cstdlib>

namespace veridane {
namespace {

constexpr std::string_view binaryMagic = "bplist";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

struct Free {
    void operator()(void* pointer) const { std::free(pointer); }
};

std::optional<std::string> textOf(plist_t node) {
    if (node == nullptr || plist_get_node_type(node) != PLIST_STRING)
        return std::nullopt;
    std::uint64_t size = 0;
    const char* bytes = plist_get_string_ptr(node, &size);
    return text::validUtf8(std::string_view(bytes, static_cast<std::size_t>(size)));
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
    auto content = bytes.text();
    if (content.starts_with(byteOrderMark)) // libplist takes it for text in front of the list
        content.remove_prefix(byteOrderMark.size());

    auto list = std::make_unique<Implementation>();
    const auto size = static_cast<std::uint32_t>(content.size());
    if (content.starts_with(binaryMagic)) {
        if (PropertyListGuard::allowsBinary(bytesOf(content)))
            plist_from_bin(content.data(), size, &list->root);
    } else if (PropertyListGuard::allowsXml(content)) {
        plist_from_xml(content.data(), size, &list->root);
    }
    if (list->root == nullptr || plist_get_node_type(list->root) != PLIST_DICT)
        return std::nullopt;
    return PropertyList(std::move(list));
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
