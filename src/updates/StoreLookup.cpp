#include "updates/StoreLookup.h"

#include "platform/Environment.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <utility>

namespace veridane {
namespace {

using Json = nlohmann::json;

// What readers of JSON usually put up with; the store needs three.
constexpr std::size_t maxDepth = 512;

/// Picks results[0].version out of a JSON document as it is read. Building the document first would
/// take many times its size. Of a key that is there twice, the last one counts.
class AnswerReader final : public nlohmann::json_sax<Json> {
public:
    std::optional<std::string> version() && {
        return m_isListOfObjects ? std::move(m_version) : std::nullopt;
    }

    bool key(string_t& name) override {
        if (m_depth == 1) {
            m_isInResults = name == "results";
            if (m_isInResults) {
                m_resultCount = 0;
                m_version.reset();
            }
        }
        if (m_depth == 3)
            m_isAtVersion = m_isInResults && m_resultCount == 1 && name == "version";
        return true;
    }

    bool start_object(std::size_t) override { return begin(Kind::object); }
    bool start_array(std::size_t) override { return begin(Kind::array); }
    bool end_object() override { return end(); }
    bool end_array() override { return end(); }
    bool null() override { return value(Kind::other); }
    bool boolean(bool) override { return value(Kind::other); }
    bool number_integer(number_integer_t) override { return value(Kind::other); }
    bool number_unsigned(number_unsigned_t) override { return value(Kind::other); }
    bool number_float(number_float_t, const string_t&) override { return value(Kind::other); }
    bool binary(binary_t&) override { return value(Kind::other); }
    bool string(string_t& text) override {
        const bool goesOn = value(Kind::other);
        if (m_depth == 3 && m_isAtVersion)
            m_version = std::move(text);
        return goesOn;
    }

    bool parse_error(std::size_t, const std::string&, const Json::exception&) override {
        return false;
    }

private:
    enum class Kind { object, array, other };

    /// The depth is 0 for the document, 1 for the results, 2 for a result, 3 for a version.
    bool value(Kind kind) {
        if (m_depth == 1 && m_isInResults)
            m_isListOfObjects = kind == Kind::array;
        if (m_depth == 2 && m_isInResults) {
            m_isListOfObjects = m_isListOfObjects && kind == Kind::object;
            ++m_resultCount;
        }
        if (m_depth == 3 && m_isAtVersion)
            m_version.reset();
        return m_depth > 0 || kind == Kind::object;
    }

    bool begin(Kind kind) {
        const bool goesOn = value(kind);
        return ++m_depth <= maxDepth && goesOn;
    }

    bool end() {
        --m_depth;
        return true;
    }

    std::size_t m_depth = 0; // open objects and arrays
    bool m_isInResults = false;
    bool m_isListOfObjects = false; // the results, as far as they have been seen
    std::size_t m_resultCount = 0;
    bool m_isAtVersion = false; // of the first result
    std::optional<std::string> m_version;
};

} // namespace

std::string storeLookupService() {
    return Environment::service("VERIDANE_STORE_LOOKUP", "https://itunes.apple.com");
}

std::optional<Url> storeLookupUrl(std::string_view service, std::string_view bundleIdentifier) {
    std::string text(service);
    text.append("/lookup?bundleId=").append(bundleIdentifier).append("&country=de");
    return Url::parse(text);
}

std::optional<std::string> storeVersion(std::string_view body) {
    // The library takes a zero for the end, whatever follows.
    if (body.find('\0') != std::string_view::npos)
        return std::nullopt;
    AnswerReader reader;
    if (!Json::sax_parse(body.begin(), body.end(), &reader))
        return std::nullopt;
    return std::move(reader).version();
}

} // namespace veridane
