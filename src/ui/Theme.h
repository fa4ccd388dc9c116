#pragma once

#include "ui/AppearanceMode.h"
#include "ui/ThemeColours.h"

#include <QFont>
#include <QObject>
#include <QPixmap>

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

class QPainter;
class QRect;

namespace veridane::ui {

class Symbols;

/// The sizes and weights of text. A name with a weight in it is a variant of the style before.
enum class TextStyle : std::uint8_t {
    title2,
    barTitle,
    headline,
    body,
    bodyMedium,
    callout,
    calloutMedium,
    calloutSemibold,
    subheadline,
    caption,
    captionMedium,
    caption2,
    monospacedCallout,
    monospacedCaption
};

/// What the desktop says of its looks; the theme follows it.
struct SystemLook {
    bool isDark = false;
    bool wantsHighContrast = false;
    std::optional<QColor> accent; // where the desktop has one of its own
    double textScale = 1;         // above 1 for users who need larger text

    bool operator==(const SystemLook&) const = default;
};

/// The one place that colours, fonts and symbols come from. For the main thread.
class Theme : public QObject {
    Q_OBJECT

public:
    explicit Theme(const SystemLook& look = {}, QObject* parent = nullptr);
    ~Theme() override;

    void setMode(AppearanceMode mode);
    void setSystemLook(const SystemLook& look);

    [[nodiscard]] const ThemeColours& colours() const { return m_colours; }
    [[nodiscard]] bool isDark() const { return m_isDark; }

    [[nodiscard]] QColor textColour(Tone tone) const;
    [[nodiscard]] QColor symbolColour(Tone tone) const;
    /// The vivid hue of a tinted surface or a quiet border, at that opacity.
    [[nodiscard]] QColor tint(Tone tone, double opacity) const;

    /// Fonts do not change with the appearance.
    [[nodiscard]] QFont font(TextStyle style) const;
    /// The same for text from scanned objects: no digit, arrow or hyphen is joined to another sign.
    [[nodiscard]] QFont verbatimFont(TextStyle style) const;
    /// Logical pixels from one line to the next.
    [[nodiscard]] int lineHeight(TextStyle style) const;
    /// A measure that grows with the user's text size.
    [[nodiscard]] int scaled(int pixels) const;

    /// The symbol in a square of `size` logical pixels; see `Symbols`.
    [[nodiscard]] QPixmap symbol(std::string_view name, int size, Tone tone, double dpr) const;
    /// Draws it in the middle of the rectangle.
    void drawSymbol(QPainter& painter, const QRect& rect, std::string_view name, int size,
                    Tone tone) const;

Q_SIGNALS:
    /// Colours have changed; widgets are to be painted anew.
    void changed();

private:
    void choose();

    AppearanceMode m_mode = AppearanceMode::system;
    SystemLook m_look;
    bool m_isDark = false;
    ThemeColours m_colours;
    std::unique_ptr<Symbols> m_symbols;
};

} // namespace veridane::ui
