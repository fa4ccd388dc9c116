#pragma once

#include "model/ScanItem.h"

#include <functional>
#include <set>
#include <span>
#include <string>

namespace veridane {

/// Which Intel objects have a native twin in the same list: one with the same bundle identifier, or
/// one of the same name (case aside) and kind.
class NativeCounterparts {
public:
    NativeCounterparts() = default;
    explicit NativeCounterparts(std::span<const ScanItem> items);

    /// Depends on identifier, name and kind alone, so it is true for the native twin as well.
    [[nodiscard]] bool has(const ScanItem& item) const;

    /// "bid:" and an identifier, or "nk:" and "<lower-case name>|<kind>".
    [[nodiscard]] const std::set<std::string, std::less<>>& keys() const { return m_keys; }

    bool operator==(const NativeCounterparts&) const = default;

private:
    std::set<std::string, std::less<>> m_keys;
};

} // namespace veridane
