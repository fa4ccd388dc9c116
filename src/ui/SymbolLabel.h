#pragma once

#include "ui/Theme.h"

#include <QWidget>

#include <string>
#include <string_view>

namespace veridane::ui {

/// A symbol beside a text that says the same; assistive technology passes over it.
class SymbolLabel : public QWidget {
    Q_OBJECT

public:
    /// The symbol stands in the middle of a box that is `box` logical pixels wide.
    SymbolLabel(const Theme& theme, std::string_view name, int size, int box, Tone tone,
                QWidget* parent = nullptr);

    void setSymbol(std::string_view name, Tone tone);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& m_theme;
    std::string m_name;
    int m_size;
    Tone m_tone;
};

} // namespace veridane::ui
