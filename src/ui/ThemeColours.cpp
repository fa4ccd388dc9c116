#include "ui/ThemeColours.h"

#include <algorithm>
#include <cmath>

namespace veridane::ui {
namespace {

constexpr double readableText = 4.5; // WCAG 2 AA
constexpr double lightnessStep = 0.02;

QColor rgb(QRgb value) {
    return QColor::fromRgb(value);
}

/// Fills in what is derived from the accent and the surfaces.
void deriveFromAccent(ThemeColours& colours, double focusOpacity, double selectedOpacity) {
    const bool isDark = colours.window.lightnessF() < 0.5F;
    colours.focusRing = faded(isDark ? colours.accentText : colours.accent, focusOpacity);
    colours.activeRow = faded(colours.accentTint, 0.18);
    colours.selectedRow = faded(colours.accentTint, selectedOpacity);
    colours.tintedCard = blended(faded(colours.accentTint, 0.10), colours.card);
    colours.tintedCardBorder = faded(colours.accentTint, 0.14);
}

QColor withLightness(const QColor& colour, double lightness) {
    const QColor hsl = colour.toHsl();
    return QColor::fromHslF(std::max(hsl.hslHueF(), 0.0F), hsl.hslSaturationF(),
                            static_cast<float>(std::clamp(lightness, 0.0, 1.0)))
        .toRgb();
}

/// The hue and saturation of `accent` in the lightness of `model`.
QColor inLightnessOf(const QColor& model, const QColor& accent) {
    return withLightness(accent, static_cast<double>(model.toHsl().lightnessF()));
}

/// Changes the lightness in steps until the contrast with `other` suffices, or there is none left.
QColor readable(QColor colour, const QColor& other, double step) {
    double lightness = static_cast<double>(colour.toHsl().lightnessF());
    while (contrastRatio(colour, other) < readableText && lightness > 0 && lightness < 1) {
        lightness += step;
        colour = withLightness(colour, lightness);
    }
    return colour;
}

/// Whether the rows that are tinted with the accent leave the texts on them readable.
bool hasReadableRows(const ThemeColours& colours) {
    const QColor active = blended(colours.activeRow, colours.sidebar);
    const QColor selected = blended(colours.selectedRow, colours.content);
    return contrastRatio(colours.secondary, active) >= readableText &&
           std::ranges::all_of(colours.hues, [&](const HueColours& hue) {
               return contrastRatio(hue.text, selected) >= readableText;
           });
}

double channelLuminance(float value) {
    const auto channel = static_cast<double>(value);
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * channelLuminance(colour.redF()) + 0.7152 * channelLuminance(colour.greenF()) +
           0.0722 * channelLuminance(colour.blueF());
}

} // namespace

ThemeColours lightColours() {
    const QColor ink = rgb(0x1C1C20);
    ThemeColours colours;
    colours.window = rgb(0xF7F7F9);
    colours.sidebar = rgb(0xF0F0F4);
    colours.content = rgb(0xFFFFFF);
    colours.detail = rgb(0xFBFBFC);
    colours.card = rgb(0xFFFFFF);
    colours.control = rgb(0xFFFFFF);
    colours.popover = rgb(0xFFFFFF);
    colours.text = ink;
    colours.secondary = rgb(0x585862);
    colours.tertiary = rgb(0x85858F);
    colours.quaternary = faded(ink, 0.10);
    colours.separator = faded(ink, 0.10);
    colours.border = faded(ink, 0.16);
    colours.controlBorder = faded(ink, 0.20);
    colours.hover = faded(ink, 0.045);
    colours.pressed = faded(ink, 0.09);
    colours.scrim = faded(rgb(0x14141A), 0.30);
    colours.scrollThumb = faded(ink, 0.28);
    colours.scrollThumbHover = faded(ink, 0.40);
    colours.accent = rgb(0x4A50D2);
    colours.accentHover = rgb(0x4147C6);
    colours.accentPressed = rgb(0x383DB0);
    colours.onAccent = rgb(0xFFFFFF);
    colours.accentText = rgb(0x4147C6);
    colours.accentTint = rgb(0x4A50D2);
    colours.hues = {{{rgb(0xDC352C), rgb(0xB92720), rgb(0xFF3B30)},
                     {rgb(0xCF5F00), rgb(0xA04600), rgb(0xFF8A00)},
                     {rgb(0xB58000), rgb(0x785400), rgb(0xFFBE00)},
                     {rgb(0x1E8E41), rgb(0x14692B), rgb(0x28BE55)},
                     {rgb(0x0A74D6), rgb(0x005CAD), rgb(0x0A84FF)},
                     {rgb(0x7C7C86), rgb(0x5A5A63), rgb(0x80808C)}}};
    deriveFromAccent(colours, 0.70, 0.12);
    return colours;
}

ThemeColours darkColours() {
    const QColor white = rgb(0xFFFFFF);
    ThemeColours colours;
    colours.window = rgb(0x1F1F23);
    colours.sidebar = rgb(0x26262B);
    colours.content = rgb(0x19191C);
    colours.detail = rgb(0x1F1F23);
    colours.card = rgb(0x2A2A2F);
    colours.control = rgb(0x34343A);
    colours.popover = rgb(0x2E2E34);
    colours.text = rgb(0xF2F2F5);
    colours.secondary = rgb(0xB0B0BB);
    colours.tertiary = rgb(0x7C7C88);
    colours.quaternary = faded(white, 0.10);
    colours.separator = faded(white, 0.09);
    colours.border = faded(white, 0.14);
    colours.controlBorder = faded(white, 0.14);
    colours.hover = faded(white, 0.06);
    colours.pressed = faded(white, 0.11);
    colours.scrim = faded(rgb(0x000000), 0.50);
    colours.scrollThumb = faded(white, 0.26);
    colours.scrollThumbHover = faded(white, 0.38);
    colours.accent = rgb(0x5F64E6);
    colours.accentHover = rgb(0x565BD9);
    colours.accentPressed = rgb(0x4B50C6);
    colours.onAccent = white;
    colours.accentText = rgb(0xA5A8FF);
    colours.accentTint = rgb(0x8F94FF);
    colours.hues = {{{rgb(0xFF6B61), rgb(0xFF857D), rgb(0xFF6B61)},
                     {rgb(0xFF9F2E), rgb(0xFFAE52), rgb(0xFF9F2E)},
                     {rgb(0xFFD043), rgb(0xFFD666), rgb(0xFFD043)},
                     {rgb(0x3DD168), rgb(0x5FDB84), rgb(0x3DD168)},
                     {rgb(0x4AA8FF), rgb(0x6CB8FF), rgb(0x4AA8FF)},
                     {rgb(0x93939E), rgb(0xA7A7B2), rgb(0x93939E)}}};
    deriveFromAccent(colours, 0.75, 0.18);
    return colours;
}

ThemeColours withAccent(ThemeColours colours, const QColor& accent) {
    const bool isDark = colours.window.lightnessF() < 0.5F;
    const double focusOpacity = static_cast<double>(colours.focusRing.alphaF());
    const double selectedOpacity = static_cast<double>(colours.selectedRow.alphaF());
    for (QColor* shade : {&colours.accent, &colours.accentHover, &colours.accentPressed})
        *shade = readable(inLightnessOf(*shade, accent), colours.onAccent, -lightnessStep);
    colours.accentTint = inLightnessOf(colours.accentTint, accent);
    deriveFromAccent(colours, focusOpacity, selectedOpacity);
    // A vivid yellow is much brighter than an indigo of the same lightness.
    for (double lightness = static_cast<double>(colours.accentTint.toHsl().lightnessF());
         !hasReadableRows(colours) && lightness > 0 && lightness < 1;) {
        lightness += isDark ? -lightnessStep : lightnessStep;
        colours.accentTint = withLightness(colours.accentTint, lightness);
        deriveFromAccent(colours, focusOpacity, selectedOpacity);
    }
    const QColor row = blended(colours.activeRow, colours.sidebar);
    colours.accentText = readable(inLightnessOf(colours.accentText, accent), row,
                                  isDark ? lightnessStep : -lightnessStep);
    deriveFromAccent(colours, focusOpacity, selectedOpacity);
    return colours;
}

ThemeColours withHighContrast(ThemeColours colours) {
    for (QColor* line : {&colours.separator, &colours.border, &colours.controlBorder})
        line->setAlphaF(std::min(1.0F, 2 * line->alphaF()));
    colours.secondary = colours.text;
    return colours;
}

QColor faded(const QColor& colour, double opacity) {
    QColor result = colour;
    result.setAlphaF(static_cast<float>(colour.alphaF() * opacity));
    return result;
}

QColor blended(const QColor& over, const QColor& under) {
    const float opacity = over.alphaF();
    const auto mix = [opacity](float top, float bottom) {
        return top * opacity + bottom * (1 - opacity);
    };
    return QColor::fromRgbF(mix(over.redF(), under.redF()), mix(over.greenF(), under.greenF()),
                            mix(over.blueF(), under.blueF()));
}

double contrastRatio(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace veridane::ui
