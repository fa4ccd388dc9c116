#include "model/JsonForms.h"
#include "model/SnapshotReader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// What can be read comes back the same from what is written for it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veridane;
    const auto snapshot = json::readSnapshot({reinterpret_cast<const char*>(data), size});
    if (snapshot && json::readSnapshot(json::snapshotText(*snapshot)) != snapshot)
        std::abort();
    return 0;
}
