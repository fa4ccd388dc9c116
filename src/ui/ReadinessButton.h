#pragma once

#include "ui/PaintedButton.h"

#include <string_view>

namespace veridane::ui {

/// The sentence that something needs Rosetta 2; a press shows what.
class ReadinessButton : public PaintedButton {
    Q_OBJECT

public:
    explicit ReadinessButton(const Theme& theme, QWidget* parent = nullptr);

    void setAction(std::string_view action);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_action;
};

} // namespace veridane::ui
