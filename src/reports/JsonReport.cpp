#include "reports/ReportExporter.h"

#include <nlohmann/json.hpp>

namespace veridane::ReportExporter {
namespace {

using Json = nlohmann::json; // keeps the keys of an object sorted

Json orNull(const auto& value) {
    return value ? Json(*value) : Json();
}

Json reportForm(const ScanItem& item) {
    const auto& architectures = item.architecture.architectures;
    Json names = Json::array();
    for (const CPUArch architecture : architectures)
        names.push_back(rawString(architecture));
    return {
        {"name", item.name},
        {"kind", rawString(item.kind)},
        {"status", rawString(item.status)},
        {"architectures", std::move(names)},
        {"isUniversal", architectures.size() > 1},
        {"intelComponents", item.intelComponents},
        {"hasHiddenRosettaDependency", item.hasHiddenRosettaDependency()},
        {"vendor", orNull(item.vendor)},
        {"teamIdentifier", orNull(item.teamIdentifier)},
        {"version", orNull(item.version)},
        {"buildNumber", orNull(item.buildNumber)},
        {"bundleIdentifier", orNull(item.bundleIdentifier)},
        {"category", orNull(item.categoryDescription)},
        {"updateSource", rawString(item.updateSource)},
        {"updateResult", displayName(item.updateResult)},
        {"sizeBytes", orNull(item.sizeOnDisk)},
        {"path", item.path},
    };
}

/// The library's own pretty form has no blank in front of a colon and leaves slashes alone, while
/// readers of this report compare it byte by byte.
class PrettyWriter {
public:
    /// Throws what the library throws at text that is no UTF-8. The depth is that of the report.
    void write(const Json& value) {
        if (value.is_structured() && !value.empty())
            return writeStructure(value);
        for (const char character : value.dump()) {
            if (character == '/')
                m_text += '\\';
            m_text += character;
        }
    }

    [[nodiscard]] std::string text() && { return std::move(m_text); }

private:
    void writeStructure(const Json& value) {
        m_text += value.is_object() ? '{' : '[';
        ++m_depth;
        const char* separator = "\n";
        for (const auto& [key, element] : value.items()) {
            m_text += separator;
            indent();
            if (value.is_object()) {
                write(key);
                m_text += " : ";
            }
            write(element);
            separator = ",\n";
        }
        --m_depth;
        m_text += '\n';
        indent();
        m_text += value.is_object() ? '}' : ']';
    }

    void indent() { m_text.append(2 * m_depth, ' '); }

    std::string m_text;
    std::size_t m_depth = 0;
};

} // namespace

std::optional<std::string> jsonReport(std::span<const ScanItem> items, const Setting& setting) {
    try {
        Json forms = Json::array();
        for (const ScanItem& item : items)
            forms.push_back(reportForm(item));
        PrettyWriter writer;
        writer.write({
            {"generatedAt", formatISO8601(setting.date)},
            {"tool", "Veridane"},
            {"itemCount", items.size()},
            {"items", std::move(forms)},
        });
        return std::move(writer).text();
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

} // namespace veridane::ReportExporter
