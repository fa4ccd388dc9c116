#include "platform/CmsSigner.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    (void)veridane::signerSubjectSummary(veridane::ByteView({data, size}));
    return 0;
}
