#include "ui/PictureDecoder.h"

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The readers of the formats complain of each damaged picture.
    static const auto talkative = qInstallMessageHandler([](auto, const auto&, const auto&) {});
    (void)talkative;
    const QImage picture = veridane::ui::decodedPicture({{data, size}});
    if (std::min(picture.width(), picture.height()) > 96 ||
        std::max(picture.width(), picture.height()) > 2048)
        std::abort();
    return 0;
}
