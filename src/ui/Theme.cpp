#include "ui/Theme.h"

#include "ui/Symbols.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPainter>

#include <cmath>

namespace veridane::ui {
namespace {

struct StyleRow {
    int size; // logical pixels
    QFont::Weight weight;
    int lineHeight;
    bool isMonospaced = false;
};

// JetBrains Mono is a pixel smaller than its style: its letters are as tall as Inter's one size up.
StyleRow rowOf(TextStyle style) {
    switch (style) {
    case TextStyle::title2:
        return {17, QFont::Bold, 22};
    case TextStyle::barTitle:
        return {15, QFont::DemiBold, 20};
    case TextStyle::headline:
        return {13, QFont::DemiBold, 17};
    case TextStyle::body:
        return {13, QFont::Normal, 17};
    case TextStyle::bodyMedium:
        return {13, QFont::Medium, 17};
    case TextStyle::callout:
        return {12, QFont::Normal, 16};
    case TextStyle::calloutMedium:
        return {12, QFont::Medium, 16};
    case TextStyle::calloutSemibold:
        return {12, QFont::DemiBold, 16};
    case TextStyle::subheadline:
        return {11, QFont::DemiBold, 14};
    case TextStyle::caption:
        return {11, QFont::Normal, 14};
    case TextStyle::captionMedium:
        return {11, QFont::Medium, 14};
    case TextStyle::caption2:
        return {10, QFont::Normal, 13};
    case TextStyle::monospacedCallout:
        return {11, QFont::Normal, 16, true};
    case TextStyle::monospacedCaption:
        return {10, QFont::Normal, 14, true};
    }
    return {13, QFont::Normal, 17};
}

constexpr int displaySize = 15; // from here on the letters are drawn closer

QStringList familiesOf(const StyleRow& row) {
    const auto fallback = QFontDatabase::systemFont(row.isMonospaced ? QFontDatabase::FixedFont
                                                                     : QFontDatabase::GeneralFont)
                              .families();
    if (row.isMonospaced)
        return QStringList{QStringLiteral("JetBrains Mono")} + fallback;
    if (row.size >= displaySize)
        return QStringList{QStringLiteral("Inter Display"), QStringLiteral("Inter")} + fallback;
    return QStringList{QStringLiteral("Inter")} + fallback;
}

std::size_t hueIndex(Tone tone) {
    return static_cast<std::size_t>(tone) - static_cast<std::size_t>(Tone::red);
}

bool isHue(Tone tone) {
    return tone >= Tone::red;
}

} // namespace

Theme::Theme(const SystemLook& look, QObject* parent)
    : QObject(parent), m_look(look), m_symbols(std::make_unique<Symbols>()) {
    choose();
}

Theme::~Theme() = default;

void Theme::setMode(AppearanceMode mode) {
    m_mode = mode;
    choose();
}

void Theme::setSystemLook(const SystemLook& look) {
    m_look = look;
    choose();
}

void Theme::choose() {
    m_isDark =
        m_mode == AppearanceMode::dark || (m_mode == AppearanceMode::system && m_look.isDark);
    ThemeColours colours = m_isDark ? darkColours() : lightColours();
    if (m_look.accent)
        colours = withAccent(colours, *m_look.accent);
    if (m_look.wantsHighContrast)
        colours = withHighContrast(colours);
    if (colours == m_colours)
        return;
    m_colours = colours;
    m_symbols->clear();
    Q_EMIT changed();
}

QColor Theme::textColour(Tone tone) const {
    switch (tone) {
    case Tone::primary:
        return m_colours.text;
    case Tone::secondary:
        return m_colours.secondary;
    case Tone::tertiary:
        return m_colours.tertiary;
    case Tone::accent:
        return m_colours.accentText;
    case Tone::onAccent:
        return m_colours.onAccent;
    case Tone::red:
    case Tone::orange:
    case Tone::yellow:
    case Tone::green:
    case Tone::blue:
    case Tone::gray:
        break;
    }
    return m_colours.hues.at(hueIndex(tone)).text;
}

QColor Theme::symbolColour(Tone tone) const {
    return isHue(tone) ? m_colours.hues.at(hueIndex(tone)).symbol : textColour(tone);
}

QColor Theme::tint(Tone tone, double opacity) const {
    // What has no hue of its own is tinted like the accent, or quietly in gray.
    return faded(tone == Tone::accent
                     ? m_colours.accentTint
                     : m_colours.hues.at(hueIndex(isHue(tone) ? tone : Tone::gray)).tint,
                 opacity);
}

QFont Theme::font(TextStyle style) const {
    const StyleRow row = rowOf(style);
    QFont font;
    font.setFamilies(familiesOf(row));
    font.setPixelSize(scaled(row.size));
    font.setWeight(row.weight);
    if (qGuiApp->devicePixelRatio() > 1)
        font.setHintingPreference(QFont::PreferNoHinting);
    if (row.isMonospaced)
        font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

QFont Theme::verbatimFont(TextStyle style) const {
    QFont result = font(style);
    result.setStyleStrategy(QFont::PreferNoShaping);
    return result;
}

int Theme::lineHeight(TextStyle style) const {
    return scaled(rowOf(style).lineHeight);
}

int Theme::scaled(int pixels) const {
    return static_cast<int>(std::lround(pixels * m_look.textScale));
}

QPixmap Theme::symbol(std::string_view name, int size, Tone tone, double dpr) const {
    return m_symbols->pixmap(name, size, symbolColour(tone), dpr);
}

void Theme::drawSymbol(QPainter& painter, const QRect& rect, std::string_view name, int size,
                       Tone tone) const {
    const QPixmap picture = symbol(name, size, tone, painter.device()->devicePixelRatioF());
    painter.drawPixmap(rect.x() + (rect.width() - size) / 2, rect.y() + (rect.height() - size) / 2,
                       picture);
}

} // namespace veridane::ui
