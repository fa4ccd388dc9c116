#pragma once

#include <cstdint>
#include <string>

namespace veridane {

/// How far a running scan has come.
struct ScanProgress {
    std::string phase; // in the user's language
    std::int64_t completed = 0;
    std::int64_t total = 0; // targets of the whole scan; 0 until they are known

    bool operator==(const ScanProgress&) const = default;
};

} // namespace veridane
