#include "updates/AppcastParser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// A feed gives the same as a whole and in pieces, whose sizes its bytes say themselves.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view document(reinterpret_cast<const char*>(data), size);
    veridane::AppcastParser parser;
    for (std::size_t at = 0; at < size;) {
        const std::size_t pieceSize = std::max<std::size_t>(data[at], 1);
        parser.feed(document.substr(at, pieceSize));
        at += pieceSize;
    }
    if (parser.finish() != veridane::AppcastParser::parse(document))
        std::abort();
    return 0;
}
