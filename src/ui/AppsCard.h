#pragma once

#include "ui/PaintedButton.h"
#include "ui/Retranslated.h"

namespace veridane::ui {

class WrapLabel;

/// A card that is one link: to all applications of the maker.
class AppsCard : public Retranslated<PaintedButton> {
    Q_OBJECT

public:
    explicit AppsCard(const Theme& theme, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void retranslate() final;

    WrapLabel* m_title;
    WrapLabel* m_tagline;
    WrapLabel* m_call;
};

} // namespace veridane::ui
