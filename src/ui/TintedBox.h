#pragma once

#include "ui/ThemeColours.h"

#include <QFrame>

namespace veridane::ui {

class Theme;

/// A rounded box in the hue of what it says.
class TintedBox : public QFrame {
    Q_OBJECT

public:
    struct Look {
        double fill = 0;   // opacity of the hue
        double border = 0; // the same; none at 0
        int radius = 0;
    };
    TintedBox(const Theme& theme, const Look& look, QWidget* parent = nullptr);

    void setTone(Tone tone);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& m_theme;
    Look m_look;
    Tone m_tone = Tone::gray;
};

} // namespace veridane::ui
