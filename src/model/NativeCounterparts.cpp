#include "model/NativeCounterparts.h"

#include "platform/Text.h"

#include <unordered_map>

namespace veridane {
namespace {

struct Twins {
    bool hasNative = false;
    bool hasIntel = false;
};

/// Exactly as written: identifiers that differ in case belong to different software.
std::string identifierKey(std::string_view identifier) {
    return "bid:" + std::string(identifier);
}

/// The kind keeps a background service from passing for the application that it is named after.
std::string nameKey(const ScanItem& item) {
    return "nk:" + text::lowercased(item.name) + "|" + std::string(rawString(item.kind));
}

} // namespace

NativeCounterparts::NativeCounterparts(std::span<const ScanItem> items) {
    std::unordered_map<std::string, Twins> groups;
    for (const ScanItem& item : items) {
        const bool isNative = item.status == CompatibilityStatus::native;
        if (!isNative && item.status != CompatibilityStatus::needsRosetta)
            continue;
        const auto note = [&](const std::string& key) {
            Twins& twins = groups[key];
            (isNative ? twins.hasNative : twins.hasIntel) = true;
            if (twins.hasNative && twins.hasIntel)
                m_keys.insert(key);
        };
        if (item.bundleIdentifier)
            note(identifierKey(*item.bundleIdentifier));
        note(nameKey(item));
    }
}

bool NativeCounterparts::has(const ScanItem& item) const {
    if (item.bundleIdentifier && m_keys.contains(identifierKey(*item.bundleIdentifier)))
        return true;
    return m_keys.contains(nameKey(item));
}

} // namespace veridane
