#include "updates/VersionRule.h"

#include "platform/Text.h"

#include <charconv>
#include <optional>

namespace veridane::UpdateChecker {
namespace {

std::int64_t valueOf(std::string_view run) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(run.begin(), run.end(), value);
    return error == std::errc() && end == run.end() ? value : 0;
}

std::optional<std::int64_t> takeComponent(std::string_view& text) {
    const auto run = text::takeNumberRun(text);
    if (!run)
        return std::nullopt;
    return valueOf(*run);
}

} // namespace

std::vector<std::int64_t> versionComponents(std::string_view text) {
    std::vector<std::int64_t> components;
    while (const auto component = takeComponent(text))
        components.push_back(*component);
    return components;
}

// Component by component, without the two lists: a feed may hold a version of many megabytes.
bool isNewer(std::string_view a, std::string_view b) {
    while (true) {
        const auto ofA = takeComponent(a);
        const auto ofB = takeComponent(b);
        if (!ofA && !ofB)
            return false;
        if (ofA.value_or(0) != ofB.value_or(0))
            return ofA.value_or(0) > ofB.value_or(0);
    }
}

bool isNewer(std::string_view a, std::span<const std::int64_t> b) {
    for (std::size_t i = 0;; ++i) {
        const auto ofA = takeComponent(a);
        if (!ofA)
            return false; // no component is below 0
        const std::int64_t ofB = i < b.size() ? b[i] : 0;
        if (*ofA != ofB)
            return *ofA > ofB;
    }
}

} // namespace veridane::UpdateChecker
