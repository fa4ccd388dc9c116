#pragma once

#include "platform/XmlEvents.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veridane {

/// One release of an update feed. One without any version is a release as well.
struct AppcastEntry {
    std::optional<std::string> version;      // what machines compare
    std::optional<std::string> shortVersion; // what people are shown

    bool operator==(const AppcastEntry&) const = default;
};

/// Finds the newest release in an update feed that arrives in pieces. Holds two entries at most,
/// however many the feed has. For one feed and one thread at a time.
class AppcastParser : private XmlHandler {
public:
    AppcastParser() : m_reader(*this) {}

    void feed(std::string_view piece) { m_reader.feed(piece); }

    /// Says that nothing more comes, and gives the newest entry; of equal ones, that which stands
    /// first. Nothing if the feed is not a well-formed document or has no entry.
    [[nodiscard]] std::optional<AppcastEntry> finish();

    /// The same for a feed that is there as a whole.
    [[nodiscard]] static std::optional<AppcastEntry> parse(std::string_view document);

private:
    void startElement(std::string_view name, const XmlAttributes& attributes) override;
    void characters(std::string_view text) override;
    void endElement(std::string_view name) override;

    void closeItem();

    XmlReader m_reader;
    std::vector<bool> m_isVersionElement; // for each open element
    std::optional<AppcastEntry> m_item;   // the one that is open
    std::string m_text;                   // since the last tag, where it may be a version
    std::optional<AppcastEntry> m_best;   // of the items that have ended
    std::vector<std::int64_t> m_bestComponents;
};

} // namespace veridane
