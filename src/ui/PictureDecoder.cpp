#include "ui/PictureDecoder.h"

#include "ui/Metrics.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QSize>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace veridane::ui {
namespace {

using namespace std::string_view_literals;

constexpr int largestSide = 2048;     // pixels of a picture that is looked at
constexpr int mostScans = 100;        // of a JPEG; usual ones have about ten
constexpr int largestScreenScale = 3; // device pixels for one of ours
constexpr auto pngStart = "\x89PNG\r\n\x1a\n"sv;
constexpr auto jpegStart = "\xFF\xD8\xFF"sv;

bool isAcceptable(const QSize& size) {
    return !size.isEmpty() && std::max(size.width(), size.height()) <= largestSide;
}

QByteArray copied(ByteView bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

/// The picture itself without its texts and profiles. Those may be compressed a thousandfold, and
/// the reader unpacks each of them, wanted or not: three megabytes of texts took it a minute and
/// fifteen gigabytes.
QByteArray bareParts(ByteView png) {
    constexpr std::array wanted = {"IHDR"sv, "PLTE"sv, "tRNS"sv, "IDAT"sv, "IEND"sv};
    constexpr std::size_t frame = 12; // length, name and checksum around the contents
    QByteArray parts = copied(*png.slice(0, pngStart.size()));
    for (ByteView rest = png.from(pngStart.size()); !rest.empty();) {
        const auto part = rest.slice(0, frame + std::uint64_t{rest.bigEndian32(0)});
        if (!part)
            break;
        if (std::ranges::find(wanted, part->slice(4, 4)->text()) != wanted.end())
            parts += copied(*part);
        rest = rest.from(part->size());
    }
    return parts;
}

/// A progressive JPEG is drawn once for each of its scans, and a few bytes make one. Within a scan
/// these two bytes do not occur.
bool hasTooManyScans(std::string_view jpeg) {
    constexpr auto marker = "\xFF\xDA"sv;
    int scans = 0;
    for (auto at = jpeg.find(marker); at != std::string_view::npos && scans <= mostScans; ++scans)
        at = jpeg.find(marker, at + marker.size());
    return scans > mostScans;
}

/// What a GIF's frames are drawn on. The reader allocates it, whatever the size of the first one.
QSize gifScreen(ByteView gif) {
    const std::uint32_t size = gif.littleEndian32(6);
    return {static_cast<int>(size & 0xFFFF), static_cast<int>(size >> 16)};
}

QImage read(const QByteArray& bytes, const char* format) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false); // else the readers of all other formats have a look
    reader.setAutoTransform(true);
    return isAcceptable(reader.size()) ? reader.read() : QImage();
}

QImage readAny(ByteView bytes) {
    const std::string_view text = bytes.text();
    if (text.starts_with(pngStart))
        return read(bareParts(bytes), "png");
    if (text.starts_with(jpegStart))
        return hasTooManyScans(text) ? QImage() : read(copied(bytes), "jpeg");
    if (text.starts_with("GIF87a"sv) || text.starts_with("GIF89a"sv))
        return isAcceptable(gifScreen(bytes)) ? read(copied(bytes), "gif") : QImage();
    return {};
}

} // namespace

QImage decodedPicture(ByteView bytes) {
    constexpr int needed = metrics::catalogueIcon * largestScreenScale;
    QImage picture = readAny(bytes);
    if (std::min(picture.width(), picture.height()) <= needed)
        return picture;
    return picture.scaled(needed, needed, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
}

} // namespace veridane::ui
