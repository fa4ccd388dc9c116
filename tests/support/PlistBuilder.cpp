#include "support/PlistBuilder.h"

#include <plist/plist.h>

#include <utility>

namespace veridane::test {

namespace {

/// Makes the library's node of each kind of value. The caller, or the node around it, owns it.
struct NodeMaker {
    plist_t operator()(const std::string& text) const { return plist_new_string(text.c_str()); }
    plist_t operator()(int number) const {
        return plist_new_uint(static_cast<std::uint64_t>(number));
    }
    plist_t operator()(bool flag) const { return plist_new_bool(flag ? 1 : 0); }
    plist_t operator()(const PlistList& list) const {
        plist_t node = plist_new_array();
        for (const PlistValue& value : list)
            plist_array_append_item(node, std::visit(*this, value.value()));
        return node;
    }
    plist_t operator()(const PlistDictionary& dictionary) const {
        plist_t node = plist_new_dict();
        for (const auto& [key, value] : dictionary)
            plist_dict_set_item(node, key.c_str(), std::visit(*this, value.value()));
        return node;
    }
};

} // namespace

PlistValue::PlistValue(const char* text) : m_value(std::string(text)) {}
PlistValue::PlistValue(std::string text) : m_value(std::move(text)) {}
PlistValue::PlistValue(int number) : m_value(number) {}
PlistValue::PlistValue(bool flag) : m_value(flag) {}
PlistValue::PlistValue(PlistList list) : m_value(std::move(list)) {}
PlistValue::PlistValue(PlistDictionary dictionary) : m_value(std::move(dictionary)) {}

Bytes plistFile(const PlistValue& root, PlistForm form) {
    plist_t node = std::visit(NodeMaker(), root.value());
    char* text = nullptr;
    std::uint32_t size = 0;
    if (form == PlistForm::xml)
        plist_to_xml(node, &text, &size);
    else
        plist_to_bin(node, &text, &size);
    plist_free(node);

    const Bytes file(text, text + size);
    if (form == PlistForm::xml)
        plist_to_xml_free(text);
    else
        plist_to_bin_free(text);
    return file;
}

} // namespace veridane::test
