#include "updates/VersionRule.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace {

using veridane::UpdateChecker::isNewer;
using veridane::UpdateChecker::versionComponents;

bool isNewerByLists(std::string_view a, std::string_view b) {
    auto ofA = versionComponents(a);
    auto ofB = versionComponents(b);
    const auto length = std::max(ofA.size(), ofB.size());
    ofA.resize(length);
    ofB.resize(length);
    return ofA > ofB;
}

} // namespace

// Two version texts, with a line end between them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view texts(reinterpret_cast<const char*>(data), size);
    const auto end = std::min(texts.find('\n'), size);
    const auto a = texts.substr(0, end);
    const auto b = texts.substr(std::min(end + 1, size));
    if (isNewer(a, a) || (isNewer(a, b) && isNewer(b, a)))
        std::abort();
    if (isNewer(a, b) != isNewerByLists(a, b) || isNewer(a, b) != isNewer(a, versionComponents(b)))
        std::abort();
    return 0;
}
