#include "platform/PropertyList.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto list = veridane::PropertyList::parse(veridane::ByteView({data, size}));
    if (list) {
        for (const char* key : {"CFBundleName", "ProgramArguments", "a"}) {
            (void)list->text(key);
            (void)list->textList(key);
        }
    }
    return 0;
}
