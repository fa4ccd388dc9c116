#pragma once

#include "model/Recommendation.h"
#include "ui/ThemeColours.h"

#include <string_view>

namespace veridane::ui {

/// How a judgement is shown beside its words.
struct UrgencyLook {
    std::string_view symbol;
    Tone tone = Tone::gray;
};

[[nodiscard]] UrgencyLook lookOf(Urgency urgency);

} // namespace veridane::ui
