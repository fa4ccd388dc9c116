#pragma once

#include "ui/TintedBox.h"

namespace veridane {
struct Recommendation;
}

namespace veridane::ui {

class SymbolLabel;
class WrapLabel;

/// What the program thinks of the selected object, and why, in the hue of its urgency.
class VerdictBox : public TintedBox {
    Q_OBJECT

public:
    explicit VerdictBox(const Theme& theme, QWidget* parent = nullptr);

    void showRecommendation(const Recommendation& recommendation);

private:
    SymbolLabel* m_symbol;
    WrapLabel* m_verdict;
    WrapLabel* m_advice;
};

} // namespace veridane::ui
