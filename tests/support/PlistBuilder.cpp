#include "support/PlistBuilder.h"

#include <plist/plist.h>

namespace veridane::test {

PlistValue::PlistValue(const char* text) : m_node(plist_new_string(text), plist_free) {}

PlistValue::PlistValue(int number)
    : m_node(plist_new_uint(static_cast<std::uint64_t>(number)), plist_free) {}

PlistValue::PlistValue(bool flag) : m_node(plist_new_bool(flag ? 1 : 0), plist_free) {}

PlistValue::PlistValue(const PlistList& list) : m_node(plist_new_array(), plist_free) {
    for (const PlistValue& value : list)
        plist_array_append_item(node(), plist_copy(value.node()));
}

PlistValue::PlistValue(const PlistDictionary& dictionary) : m_node(plist_new_dict(), plist_free) {
    for (const auto& [key, value] : dictionary)
        plist_dict_set_item(node(), key.c_str(), plist_copy(value.node()));
}

Bytes plistFile(const PlistValue& root, PlistForm form) {
    const bool isXml = form == PlistForm::xml;
    char* text = nullptr;
    std::uint32_t size = 0;
    (isXml ? plist_to_xml : plist_to_bin)(root.node(), &text, &size);
    const Bytes file(text, text + size);
    (isXml ? plist_to_xml_free : plist_to_bin_free)(text);
    return file;
}

} // namespace veridane::test
