#include "platform/ByteSource.h"
#include "platform/EmbeddedSignature.h"
#include "platform/SignatureBlobs.h"

#include <cstddef>
#include <cstdint>

// The input as a Mach-O or universal file that may hold a signature, as a signature on its own, and
// as the code directory and the CMS beside a bundle's seal.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veridane;
    const ByteSource input{ByteView({data, size})};
    if (const auto signature = embeddedSignature(input))
        (void)parseEmbeddedSignature(*signature);
    (void)parseEmbeddedSignature(input);
    (void)parseDetachedSignature(input, input);
    return 0;
}
