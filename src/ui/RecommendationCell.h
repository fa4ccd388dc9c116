#pragma once

#include "model/Recommendation.h"

class QFont;
class QPainter;
class QRect;

namespace veridane::ui {

class Theme;

/// What the second column says of an item: a symbol, and the verdict in at most two lines, of which
/// the second is cut if need be.
class RecommendationCell {
public:
    explicit RecommendationCell(const Recommendation& recommendation)
        : m_recommendation(recommendation) {}

    /// Vertically in the middle of the rectangle.
    void paint(QPainter& painter, const QRect& rect, const QFont& font, const Theme& theme) const;

private:
    const Recommendation& m_recommendation;
};

} // namespace veridane::ui
