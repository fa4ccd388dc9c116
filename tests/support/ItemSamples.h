#pragma once

#include "model/ScanItem.h"

#include <string>

namespace veridane::test {

/// An application with the fields that lists and judgements look at.
inline ScanItem sampleItem(const std::string& name, CompatibilityStatus status,
                           ItemKind kind = ItemKind::application) {
    ScanItem item;
    item.id = Uuid::random();
    item.name = name;
    item.path = "/Applications/" + name + ".app";
    item.kind = kind;
    item.status = status;
    return item;
}

} // namespace veridane::test
