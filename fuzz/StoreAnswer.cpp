#include "updates/StoreLookup.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using Json = nlohmann::json;

constexpr int maxDepth = 512; // deeper ones are refused

/// The slow and obvious way: the whole document first.
std::optional<std::string> versionInDocument(std::string_view body) {
    bool isTooDeep = false;
    const auto watch = [&](int depth, Json::parse_event_t event, Json&) {
        const bool opens =
            event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start;
        isTooDeep = isTooDeep || (opens && depth >= maxDepth);
        return true;
    };
    const Json answer = Json::parse(body, watch, /*allow_exceptions=*/false);
    if (isTooDeep)
        return std::nullopt;
    const Json results = answer.is_object() ? answer.value("results", Json()) : Json();
    const auto isObject = [](const Json& result) {
        return result.is_object();
    };
    if (!results.is_array() || results.empty() || !std::ranges::all_of(results, isObject))
        return std::nullopt;
    const Json version = results[0].value("version", Json());
    return version.is_string() ? std::optional(version.get<std::string>()) : std::nullopt;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view body(reinterpret_cast<const char*>(data), size);
    const auto version = veridane::storeVersion(body);
    // The library takes a zero for the end of a document.
    if (body.find('\0') == std::string_view::npos && version != versionInDocument(body))
        std::abort();
    (void)veridane::storeLookupUrl("https://store.example", body);
    return 0;
}
