#include "ui/Theme.h"

#include <gtest/gtest.h>

namespace veridane::ui {
namespace {

/// The text pairs of the windows that cannot be read.
std::vector<std::string> unreadablePairs(const ThemeColours& colours) {
    const QColor active = blended(colours.activeRow, colours.sidebar);
    const QColor selected = blended(colours.selectedRow, colours.content);
    const struct {
        const char* what;
        QColor text, surface;
    } pairs[] = {
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
    for (const auto& pair : pairs)
        if (contrastRatio(pair.text, pair.surface) < 4.5)
            unreadable.emplace_back(pair.what);
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

} // namespace
} // namespace veridane::ui
