#pragma once

#include "ui/Theme.h"

#include <QString>

#include <string_view>

class QPainter;
class QRect;

namespace veridane {
struct ScanItem;
}

namespace veridane::ui {

/// What the last column says of an item's update check.
class UpdateCell {
public:
    explicit UpdateCell(const ScanItem& item);

    [[nodiscard]] const QString& text() const { return m_text; }
    /// Why the check has failed; empty for anything else.
    [[nodiscard]] const QString& reason() const { return m_reason; }
    /// Empty without one.
    [[nodiscard]] std::string_view symbol() const { return m_symbol; }
    [[nodiscard]] Tone tone() const { return m_tone; }
    [[nodiscard]] TextStyle style() const { return m_style; }
    /// Whether a wheel turns in front of the text.
    [[nodiscard]] bool isChecking() const { return m_isChecking; }
    /// Whether the text can be pressed, to start a check.
    [[nodiscard]] bool isLink() const { return m_isLink; }

private:
    QString m_text;
    QString m_reason;
    std::string_view m_symbol;
    Tone m_tone = Tone::secondary;
    TextStyle m_style = TextStyle::caption;
    bool m_isChecking = false;
    bool m_isLink = false;
};

/// A wheel that has turned by `step` spokes.
void paintWheel(QPainter& painter, const QRect& rect, const QColor& colour, int step);

} // namespace veridane::ui
