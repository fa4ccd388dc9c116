#pragma once

#include "ui/PaintedButton.h"

#include <string>
#include <string_view>

class QVariantAnimation;

namespace veridane::ui {

/// The title of a group of rows; a press shows or hides them. Checked while they are shown.
class DisclosureButton : public PaintedButton {
    Q_OBJECT

public:
    DisclosureButton(const Theme& theme, std::string_view symbol, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::State accessibleState() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void nextCheckState() override;

private:
    std::string m_symbol;
    QVariantAnimation* m_turn; // of the chevron, in degrees
};

} // namespace veridane::ui
