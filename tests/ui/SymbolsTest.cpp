#include "ui/Symbols.h"

#include "model/ScanItem.h"

#include <QDir>
#include <QImage>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace veridane::ui {
namespace {

constexpr QRgb colour = 0xff4a50d2;

/// How many pixels the picture covers at all; -1 if an opaque one has another colour.
int coveredPixels(const QPixmap& picture) {
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    int covered = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) == 255 && pixel != colour)
                return -1;
            covered += qAlpha(pixel) > 0 ? 1 : 0;
        }
    }
    return covered;
}

TEST(Symbols, EveryDrawingShowsInItsColourAtEverySizeAndScale) {
    const Symbols symbols;
    const QStringList files = QDir(QStringLiteral(":/symbols")).entryList();
    ASSERT_FALSE(files.isEmpty());
    for (const QString& file : files) {
        for (const double dpr : {1.0, 1.5, 2.0}) {
            const std::string name = file.chopped(4).toStdString();
            SCOPED_TRACE(name + " at " + std::to_string(dpr));
            const QPixmap picture = symbols.pixmap(name, 16, QColor(colour), dpr);
            EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(16, 16));
            EXPECT_EQ(picture.devicePixelRatio(), dpr);
            EXPECT_GT(coveredPixels(picture), 16 * dpr * dpr);
        }
    }
}

TEST(Symbols, EveryNameThatTheWindowAsksForHasADrawing) {
    for (std::size_t kind = 0; kind < itemKindCount; ++kind)
        EXPECT_TRUE(Symbols::has(symbolName(static_cast<ItemKind>(kind)))) << kind;
    std::istringstream names(
        "app.fill arrow.2.squarepath arrow.clockwise arrow.clockwise.circle "
        "arrow.down.app arrow.down.app.fill arrow.down.circle arrow.right.circle.fill "
        "arrow.up.circle.fill arrow.up.right arrow.uturn.backward bag building.2 "
        "building.columns checkmark checkmark.circle checkmark.circle.fill checkmark.seal "
        "checkmark.seal.fill chevron.down chevron.right chevron.up.chevron.down "
        "circle.fill circle.lefthalf.filled cpu cpu.fill doc.on.doc doc.text "
        "exclamationmark.bubble.fill exclamationmark.triangle "
        "exclamationmark.triangle.fill eye.trianglebadge.exclamationmark folder gearshape "
        "hand.raised info.circle lock.shield magnifyingglass minus.circle moon.fill "
        "person.circle questionmark.circle seal sidebar.right square.and.arrow.up "
        "square.grid.2x2 square.grid.2x2.fill sun.max.fill xmark.circle.fill "
        "xmark.octagon.fill");
    for (std::string name; names >> name;)
        EXPECT_TRUE(Symbols::has(name)) << name;
}

TEST(Symbols, AnUnknownNameGivesAnEmptyPictureOfTheSize) {
    const QPixmap picture = Symbols().pixmap("no.such.symbol", 20, QColor(colour), 2);
    EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(20, 20));
    EXPECT_EQ(coveredPixels(picture), 0);
}

} // namespace
} // namespace veridane::ui
