#include "ui/Theme.h"

#include "model/ScanItem.h"
#include "ui/Symbols.h"

#include <QDir>
#include <QImage>

#include <gtest/gtest.h>

namespace veridane::ui {
namespace {

/// The text pairs of the windows that cannot be read.
std::vector<std::string> unreadablePairs(const ThemeColours& colours) {
    const QColor active = blended(colours.activeRow, colours.sidebar);
    const QColor selected = blended(colours.selectedRow, colours.content);
    const std::tuple<const char*, QColor, QColor> pairs[] = {
        {"text on an active row", colours.text, active},
        {"count on an active row", colours.secondary, active},
        {"accent text on an active row", colours.accentText, active},
        {"text on a selected row", colours.text, selected},
        {"vendor on a selected row", colours.secondary, selected},
        {"link on a selected row", colours.accentText, selected},
        {"white on accent", colours.onAccent, colours.accent},
        {"white on hovered accent", colours.onAccent, colours.accentHover},
        {"white on pressed accent", colours.onAccent, colours.accentPressed},
        {"placeholder", colours.secondary, colours.control},
        {"note on a tinted card", colours.secondary, colours.tintedCard},
    };
    std::vector<std::string> unreadable;
    for (const auto& [what, text, surface] : pairs)
        if (contrastRatio(text, surface) < 4.5)
            unreadable.emplace_back(what);
    for (const HueColours& hue : colours.hues) {
        const QColor box = blended(faded(hue.tint, opacity::verdictFill), colours.detail);
        for (const QColor& surface : {colours.window, colours.content, selected, box})
            if (contrastRatio(hue.text, surface) < 4.5)
                unreadable.push_back("text of " + hue.text.name().toStdString());
        if (contrastRatio(hue.symbol, colours.content) < 3)
            unreadable.push_back("symbol of " + hue.symbol.name().toStdString());
    }
    return unreadable;
}

TEST(Theme, AllTextCanBeReadInBothAppearancesWithAnyAccent) {
    const QColor accents[] = {Qt::yellow, Qt::red, QColor(0x3DAEE9), Qt::black, Qt::white};
    for (const ThemeColours& colours : {lightColours(), darkColours()}) {
        EXPECT_EQ(unreadablePairs(colours), std::vector<std::string>());
        EXPECT_EQ(unreadablePairs(withHighContrast(colours)), std::vector<std::string>());
        for (const QColor& accent : accents) {
            SCOPED_TRACE(accent.name().toStdString());
            const ThemeColours changed = withAccent(colours, accent);
            EXPECT_EQ(unreadablePairs(changed), std::vector<std::string>());
            EXPECT_EQ(changed.window, colours.window);
        }
    }
}

TEST(Theme, TheChosenModeWinsOverTheSystemsLookAndChangesAreTold) {
    Theme theme({.isDark = true});
    int changes = 0;
    QObject::connect(&theme, &Theme::changed, &theme, [&] { ++changes; });
    EXPECT_TRUE(theme.isDark());
    theme.setMode(AppearanceMode::light);
    EXPECT_EQ(theme.colours(), lightColours());
    theme.setSystemLook({.isDark = false});
    theme.setMode(AppearanceMode::system);
    EXPECT_EQ(changes, 1) << "the last two changed nothing that is seen";
    theme.setSystemLook({.isDark = true, .wantsHighContrast = true});
    EXPECT_EQ(theme.colours(), withHighContrast(darkColours()));
    EXPECT_EQ(changes, 2);
}

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

TEST(Symbols, EveryNameThatIsOneWordAloneAndThatOfEveryKindHasADrawing) {
    for (const char* name :
         {"bag", "checkmark", "cpu", "folder", "gearshape", "magnifyingglass", "seal", "terminal"})
        EXPECT_TRUE(Symbols::has(name)) << name;
    for (std::size_t kind = 0; kind < itemKindCount; ++kind)
        EXPECT_TRUE(Symbols::has(symbolName(static_cast<ItemKind>(kind)))) << kind;
}

} // namespace
} // namespace veridane::ui
