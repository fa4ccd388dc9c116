#include "model/JsonForms.h"

#include <nlohmann/json.hpp>

#include <array>
#include <limits>
#include <utility>

namespace veridane::json {
namespace {

using Json = nlohmann::json;
using Case = UpdateCheckResult::Case;

struct CaseForm {
    Case kind;
    const char* name;
    const char* payloadKey; // null for a case without a payload
};
constexpr std::array<CaseForm, 6> caseForms = {{
    {Case::notChecked, "notChecked", nullptr},
    {Case::checking, "checking", nullptr},
    {Case::upToDate, "upToDate", "latest"},
    {Case::updateAvailable, "updateAvailable", "latest"},
    {Case::noFeed, "noFeed", nullptr},
    {Case::failed, "failed", "reason"},
}};

/// What is wrong with a value; nothing for a good one.
using Fault = std::optional<std::string>;

Fault read(const Json& value, bool& out) {
    if (!value.is_boolean())
        return "Expected true or false.";
    out = value.get<bool>();
    return std::nullopt;
}

Fault read(const Json& value, std::int64_t& out) {
    if (!value.is_number_integer())
        return "Expected an integer.";
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > largest)
        return "Expected an integer of 64 bits with a sign.";
    out = value.get<std::int64_t>();
    return std::nullopt;
}

Fault read(const Json& value, std::string& out) {
    if (!value.is_string())
        return "Expected a text.";
    out = value.get_ref<const std::string&>();
    return std::nullopt;
}

/// A text that stands for a value of another type.
template <typename T>
Fault readText(const Json& value, T& out, std::optional<T> (*parse)(std::string_view),
               const char* expectation) {
    if (!value.is_string())
        return expectation;
    const auto parsed = parse(value.get_ref<const std::string&>());
    if (!parsed)
        return expectation;
    out = *parsed;
    return std::nullopt;
}

Fault read(const Json& value, Uuid& out) {
    return readText(value, out, Uuid::parse, "Expected a UUID.");
}

Fault read(const Json& value, Date& out) {
    return readText(value, out, parseISO8601, "Expected a date in ISO 8601 form.");
}

Fault read(const Json& value, CPUArch& out) {
    return readText(value, out, cpuArchFromRawString, "Expected an architecture.");
}

Fault read(const Json& value, CompatibilityStatus& out) {
    return readText(value, out, compatibilityStatusFromRawString, "Expected a status.");
}

Fault read(const Json& value, ItemKind& out) {
    return readText(value, out, itemKindFromRawString, "Expected a kind.");
}

Fault read(const Json& value, UpdateSource& out) {
    return readText(value, out, updateSourceFromRawString, "Expected an update source.");
}

template <typename T>
Fault take(Reading<T> reading, T& out) {
    if (auto* unreadable = std::get_if<Unreadable>(&reading))
        return std::move(unreadable->reason);
    out = std::get<T>(std::move(reading));
    return std::nullopt;
}

Fault read(const Json& value, ArchitectureReport& out) {
    return take(decodeArchitectureReport(value), out);
}

Fault read(const Json& value, UpdateCheckResult& out) {
    return take(decodeUpdateCheckResult(value), out);
}

template <typename T>
Fault read(const Json& value, std::vector<T>& out) {
    if (!value.is_array())
        return "Expected an array.";
    for (const Json& element : value)
        if (auto fault = read(element, out.emplace_back()))
            return fault;
    return std::nullopt;
}

/// Fills the fields of a record from an object and keeps the first fault.
class FieldReader {
public:
    explicit FieldReader(const Json& object) : m_object(object) {
        if (!object.is_object())
            m_fault = "Expected an object.";
    }

    template <typename T>
    void required(const char* key, T& field) {
        if (m_fault)
            return;
        const auto found = m_object.find(key);
        if (found == m_object.end())
            m_fault = std::string(key) + ": Missing.";
        else if (auto fault = read(*found, field))
            m_fault = std::string(key) + ": " + *fault;
    }

    template <typename T>
    void ifPresent(const char* key, std::optional<T>& field) {
        if (!m_fault && m_object.contains(key))
            required(key, field.emplace());
    }

    template <typename T>
    [[nodiscard]] Reading<T> result(T record) {
        if (m_fault)
            return Unreadable{std::move(*m_fault)};
        return record;
    }

private:
    const Json& m_object;
    Fault m_fault;
};

template <typename T>
void put(Json& object, const char* key, const std::optional<T>& value) {
    if (value)
        object[key] = *value;
}

void append(std::string& text, const Json& value) {
    // Text is valid by contract. Where it is not, a damaged name is better than no cache.
    text += value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace

Json encode(const ScanOptions& options) {
    return {
        {"includeApplications", options.includeApplications},
        {"includeSystemApps", options.includeSystemApps},
        {"includeCommandLineTools", options.includeCommandLineTools},
        {"includeLaunchServices", options.includeLaunchServices},
        {"includeAudioPlugins", options.includeAudioPlugins},
        {"includeExtensions", options.includeExtensions},
    };
}

Json encode(const ArchitectureReport& report) {
    Json architectures = Json::array();
    for (const CPUArch architecture : report.architectures)
        architectures.push_back(rawString(architecture));
    return {{"architectures", std::move(architectures)}, {"isMachO", report.isMachO}};
}

Json encode(const UpdateCheckResult& result) {
    const CaseForm& form = caseForms[static_cast<std::size_t>(result.kind)];
    Json payload = Json::object();
    if (form.payloadKey)
        payload[form.payloadKey] = result.payload;
    return Json::object({{form.name, std::move(payload)}});
}

Json encode(const ScanItem& item) {
    Json object = {
        {"id", item.id.text()},
        {"name", item.name},
        {"path", item.path},
        {"kind", rawString(item.kind)},
        {"architecture", encode(item.architecture)},
        {"status", rawString(item.status)},
        {"intelComponents", item.intelComponents},
        {"updateSource", rawString(item.updateSource)},
        {"updateResult", encode(item.updateResult)},
    };
    put(object, "bundleIdentifier", item.bundleIdentifier);
    put(object, "version", item.version);
    put(object, "buildNumber", item.buildNumber);
    put(object, "vendor", item.vendor);
    put(object, "teamIdentifier", item.teamIdentifier);
    put(object, "categoryDescription", item.categoryDescription);
    put(object, "sizeOnDisk", item.sizeOnDisk);
    if (item.lastModified)
        object["lastModified"] = formatISO8601(*item.lastModified);
    put(object, "sparkleFeedURL", item.sparkleFeedURL);
    return object;
}

Reading<ScanOptions> decodeScanOptions(const Json& value) {
    ScanOptions options;
    FieldReader fields(value);
    fields.required("includeApplications", options.includeApplications);
    fields.required("includeSystemApps", options.includeSystemApps);
    fields.required("includeCommandLineTools", options.includeCommandLineTools);
    fields.required("includeLaunchServices", options.includeLaunchServices);
    fields.required("includeAudioPlugins", options.includeAudioPlugins);
    fields.required("includeExtensions", options.includeExtensions);
    return fields.result(options);
}

Reading<ArchitectureReport> decodeArchitectureReport(const Json& value) {
    ArchitectureReport report;
    FieldReader fields(value);
    fields.required("architectures", report.architectures);
    fields.required("isMachO", report.isMachO);
    return fields.result(std::move(report));
}

Reading<UpdateCheckResult> decodeUpdateCheckResult(const Json& value) {
    if (!value.is_object())
        return Unreadable{"Expected an object."};
    const CaseForm* form = nullptr;
    int keys = 0;
    for (const CaseForm& candidate : caseForms) {
        if (!value.contains(candidate.name))
            continue;
        form = &candidate;
        ++keys;
    }
    if (keys != 1)
        return Unreadable{"Invalid number of keys found, expected one."};

    UpdateCheckResult result{form->kind, {}};
    FieldReader fields(value[form->name]);
    if (form->payloadKey)
        fields.required(form->payloadKey, result.payload);
    return fields.result(std::move(result));
}

Reading<ScanItem> decodeScanItem(const Json& value) {
    ScanItem item;
    FieldReader fields(value);
    fields.required("id", item.id);
    fields.required("name", item.name);
    fields.required("path", item.path);
    fields.required("kind", item.kind);
    fields.required("architecture", item.architecture);
    fields.required("status", item.status);
    fields.required("intelComponents", item.intelComponents);
    fields.ifPresent("bundleIdentifier", item.bundleIdentifier);
    fields.ifPresent("version", item.version);
    fields.ifPresent("buildNumber", item.buildNumber);
    fields.ifPresent("vendor", item.vendor);
    fields.ifPresent("teamIdentifier", item.teamIdentifier);
    fields.ifPresent("categoryDescription", item.categoryDescription);
    fields.ifPresent("sizeOnDisk", item.sizeOnDisk);
    fields.ifPresent("lastModified", item.lastModified);
    fields.required("updateSource", item.updateSource);
    fields.ifPresent("sparkleFeedURL", item.sparkleFeedURL);
    fields.required("updateResult", item.updateResult);
    return fields.result(std::move(item));
}

std::string snapshotText(const CachedScanSnapshot& snapshot) {
    std::string text = R"({"schemaVersion":)" + std::to_string(snapshot.schemaVersion);
    text += R"(,"scannedAt":")" + formatISO8601(snapshot.scannedAt);
    text += R"(","options":)";
    append(text, encode(snapshot.options));
    text += R"(,"items":[)";
    for (const ScanItem& item : snapshot.items) {
        if (&item != &snapshot.items.front())
            text += ',';
        append(text, encode(item));
    }
    text += "]}";
    return text;
}

} // namespace veridane::json
