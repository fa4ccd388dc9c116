#include "scan/MachOInspector.h"

#include <cstdlib>

// Any bytes give a report that keeps its promises: no slice twice, at most as many as the limit,
// and none without a header.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veridane;
    const ByteView header(std::span(data, size));
    const ArchitectureReport report = MachOInspector::inspect(header);
    if (report.isMachO != !report.architectures.empty())
        std::abort();
    if (report.isMachO && !MachOInspector::isMachOFile(header))
        std::abort();
    for (std::size_t i = 0; i < report.architectures.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (report.architectures[i] == report.architectures[j])
                std::abort();
        }
    }
    return 0;
}
