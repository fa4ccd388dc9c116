#pragma once

#include "ui/PaintedButton.h"

#include <string_view>

namespace veridane::ui {

class Label;

/// The sentence that something needs Rosetta 2; a press shows what.
class ReadinessButton : public PaintedButton {
    Q_OBJECT

public:
    explicit ReadinessButton(const Theme& theme, QWidget* parent = nullptr);

    void setAction(std::string_view action);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();

    Label* m_action; // an object of its own, so that it can be read
};

} // namespace veridane::ui
