#pragma once

#include <QColor>

#include <array>
#include <cstddef>
#include <cstdint>

namespace veridane::ui {

/// What a colour says, whatever the appearance.
enum class Tone : std::uint8_t {
    primary,
    secondary,
    tertiary, // large symbols of empty states, never text
    accent,
    onAccent,
    red,
    orange,
    yellow,
    green,
    blue,
    gray
};

/// One hue of a judgement. At full strength yellow and orange cannot be read on white, so that
/// symbols, text and tinted surfaces have a value each.
struct HueColours {
    QColor symbol;
    QColor text;
    QColor tint; // used with an opacity only

    bool operator==(const HueColours&) const = default;
};
inline constexpr std::size_t hueCount = 6; // red to gray

/// How much of a colour is left where it is to be quieter.
namespace opacity {
inline constexpr double disabled = 0.38;
inline constexpr double rowLine = 0.7;      // of the separator
inline constexpr double segmentTrack = 0.8; // of the quaternary fill
inline constexpr double tileBorder = 0.3;
inline constexpr double activeTileBorder = 0.95;
inline constexpr double verdictFill = 0.10;
inline constexpr double verdictBorder = 0.35;
inline constexpr double componentBox = 0.08;
inline constexpr double banner = 0.12;
inline constexpr double quietFill = 0.5; // of the quaternary fill
inline constexpr double iconPlaceholder = 0.15;
inline constexpr double sheetShadow = 0.26; // of black
inline constexpr double sheetShadowInDark = 0.60;
inline constexpr double sheetContactShadow = 0.12;
} // namespace opacity

/// All colours of one appearance.
struct ThemeColours {
    // surfaces
    QColor window, sidebar, content, detail, card, control, popover;
    // text and symbols
    QColor text, secondary, tertiary;
    // translucent, laid over a surface
    QColor quaternary, separator, border, controlBorder, hover, pressed, scrim;
    QColor scrollThumb, scrollThumbHover;
    // the user's accent
    QColor accent, accentHover, accentPressed, onAccent, accentText, accentTint, focusRing;
    QColor activeRow, selectedRow; // of the accent tint
    QColor tintedCard, tintedCardBorder;
    std::array<HueColours, hueCount> hues;

    bool operator==(const ThemeColours&) const = default;
};

[[nodiscard]] ThemeColours lightColours();
[[nodiscard]] ThemeColours darkColours();

/// The same with the accent's hue and saturation replaced by those of `accent`, in a lightness at
/// which white on it and its text on an active row of the sidebar can be read.
[[nodiscard]] ThemeColours withAccent(ThemeColours colours, const QColor& accent);

/// The same for users who ask for more contrast: stronger lines, and primary in place of secondary
/// text.
[[nodiscard]] ThemeColours withHighContrast(ThemeColours colours);

/// The same colour with that part of its opacity.
[[nodiscard]] QColor faded(const QColor& colour, double opacity);

/// `over`, which may be translucent, laid over the opaque colour `under`.
[[nodiscard]] QColor blended(const QColor& over, const QColor& under);

/// The ratio of luminances, from 1 (equal) to 21 (black on white), as WCAG 2 defines it.
[[nodiscard]] double contrastRatio(const QColor& one, const QColor& other);

} // namespace veridane::ui
