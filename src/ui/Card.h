#pragma once

#include <QFrame>

#include <cstdint>

class QPainter;

namespace veridane::ui {

class Theme;

enum class CardStyle : std::uint8_t { plain, tinted };

/// The surface of a card, for what is more than one.
void paintCard(QPainter& painter, const QRect& rect, const Theme& theme, CardStyle style,
               int radius);

/// A rounded surface that other widgets stand on.
class Card : public QFrame {
    Q_OBJECT

public:
    Card(const Theme& theme, CardStyle style, int radius, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& m_theme;
    CardStyle m_style;
    int m_radius;
};

} // namespace veridane::ui
