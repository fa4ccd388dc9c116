#pragma once

#include "model/ScanItem.h"

#include <span>
#include <string>

namespace veridane::cli {

/// What is known of each object, for a person: a block of lines for each, in the language in force.
[[nodiscard]] std::string inspectionText(std::span<const ScanItem> items, bool coloured);

/// The same for a program: an array of objects, absent values as null. Status and urgency are told
/// by their names in the code, verdict and advice in the language in force.
[[nodiscard]] std::string inspectionJson(std::span<const ScanItem> items);

} // namespace veridane::cli
