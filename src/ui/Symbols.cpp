#include "ui/Symbols.h"

#include "ui/Text.h"

#include <QCache>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <string>
#include <utility>

namespace veridane::ui {
namespace {

// Device pixels of all kept pictures together, 4 MB of them. A window shows about a tenth of that.
constexpr int maxCachedPixels = 1 << 20;

struct Key {
    std::string name;
    int size;
    QRgb colour;
    double dpr;

    bool operator==(const Key&) const = default;
};

std::size_t qHash(const Key& key, std::size_t seed) {
    return qHashMulti(seed, std::hash<std::string>()(key.name), key.size, key.colour, key.dpr);
}

QString resource(std::string_view name) {
    return QStringLiteral(":/symbols/%1.svg").arg(toQString(name));
}

QPixmap rendered(std::string_view name, int side, const QColor& colour) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (Symbols::has(name)) {
        QSvgRenderer drawing(resource(name));
        QPainter painter(&image);
        drawing.render(&painter, image.rect());
        // The drawings are black; what they cover takes the colour and keeps its edges.
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), colour);
    }
    return QPixmap::fromImage(std::move(image));
}

} // namespace

struct Symbols::Cache {
    QCache<Key, QPixmap> pictures{maxCachedPixels};
};

Symbols::Symbols() : m_cache(std::make_unique<Cache>()) {}

Symbols::~Symbols() = default;

QPixmap Symbols::pixmap(std::string_view name, int size, const QColor& colour, double dpr) const {
    const Key key{std::string(name), size, colour.rgba(), dpr};
    if (const QPixmap* known = m_cache->pictures.object(key))
        return *known;
    const int side = std::max(1, qRound(size * dpr));
    QPixmap picture = rendered(name, side, colour);
    picture.setDevicePixelRatio(dpr);
    m_cache->pictures.insert(key, new QPixmap(picture), side * side);
    return picture;
}

bool Symbols::has(std::string_view name) {
    return QFile::exists(resource(name));
}

void Symbols::clear() {
    m_cache->pictures.clear();
}

} // namespace veridane::ui
