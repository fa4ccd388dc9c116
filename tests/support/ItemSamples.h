#pragma once

#include "model/ScanItem.h"

#include <optional>
#include <string>
#include <utility>

namespace veridane::test {

/// An application with the fields that lists and judgements look at.
inline ScanItem sampleItem(const std::string& name, CompatibilityStatus status,
                           ItemKind kind = ItemKind::application,
                           std::optional<std::string> vendor = std::nullopt) {
    ScanItem item;
    item.id = Uuid::random();
    item.name = name;
    item.path = "/Applications/" + name + ".app";
    item.kind = kind;
    item.status = status;
    item.vendor = std::move(vendor);
    return item;
}

} // namespace veridane::test
