#pragma once

#include "model/Recommendation.h"
#include "ui/ThemeColours.h"

#include <string_view>

namespace veridane::ui {

/// What is shown beside words.
struct SymbolLook {
    std::string_view symbol;
    Tone tone = Tone::gray;
};

/// Beside a judgement.
[[nodiscard]] SymbolLook lookOf(Urgency urgency);

} // namespace veridane::ui
