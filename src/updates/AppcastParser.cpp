#include "updates/AppcastParser.h"

#include "platform/Text.h"
#include "updates/VersionRule.h"

#include <utility>

namespace veridane {
namespace {

// The names of elements and of an enclosure's attributes alike.
constexpr std::string_view versionName = "sparkle:version";
constexpr std::string_view shortVersionName = "sparkle:shortVersionString";

/// What an entry is compared by.
std::string_view keyOf(const AppcastEntry& entry) {
    if (entry.version)
        return *entry.version;
    return entry.shortVersion ? std::string_view(*entry.shortVersion) : "0";
}

void replace(std::optional<std::string>& field, std::string_view text) {
    std::string trimmed = text::trimmed(text);
    if (!trimmed.empty())
        field = std::move(trimmed);
}

} // namespace

void AppcastParser::startElement(std::string_view name, const XmlAttributes& attributes) {
    m_text.clear();
    m_isVersionElement.push_back(name == versionName || name == shortVersionName);
    if (name == "item")
        m_item = AppcastEntry(); // drops the item around it, should there be one
    if (name != "enclosure" || !m_item)
        return;
    // Unlike an element, an attribute counts when it is empty.
    if (const auto version = attributes.value(versionName))
        m_item->version = *version;
    if (const auto shortVersion = attributes.value(shortVersionName))
        m_item->shortVersion = *shortVersion;
}

void AppcastParser::characters(std::string_view text) {
    // Anything else is release notes, and they may be long.
    if (m_item && m_isVersionElement.back())
        m_text += text;
}

void AppcastParser::endElement(std::string_view name) {
    m_isVersionElement.pop_back();
    const std::string text = std::exchange(m_text, {});
    if (!m_item)
        return;
    if (name == versionName)
        replace(m_item->version, text);
    if (name == shortVersionName)
        replace(m_item->shortVersion, text);
    if (name == "item")
        closeItem();
}

void AppcastParser::closeItem() {
    AppcastEntry item = *std::exchange(m_item, std::nullopt);
    const auto key = keyOf(item);
    if (m_best && !UpdateChecker::isNewer(key, m_bestComponents))
        return;
    // Taken apart once: a long key would otherwise be read again for each entry that follows.
    m_bestComponents = UpdateChecker::versionComponents(key);
    m_best = std::move(item);
}

std::optional<AppcastEntry> AppcastParser::finish() {
    return m_reader.finish() ? m_best : std::nullopt;
}

std::optional<AppcastEntry> AppcastParser::parse(std::string_view document) {
    AppcastParser parser;
    parser.feed(document);
    return parser.finish();
}

} // namespace veridane
