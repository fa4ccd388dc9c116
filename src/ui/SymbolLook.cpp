#include "ui/SymbolLook.h"

namespace veridane::ui {

SymbolLook lookOf(Urgency urgency) {
    switch (urgency) {
    case Urgency::breaksOnMacOS28:
        return {"xmark.octagon.fill", Tone::red};
    case Urgency::partiallyAffected:
        return {"exclamationmark.triangle.fill", Tone::yellow};
    case Urgency::switchToNative:
        return {"arrow.2.squarepath", Tone::blue};
    case Urgency::ready:
        return {"checkmark.circle.fill", Tone::green};
    case Urgency::alreadyBroken:
        return {"minus.circle", Tone::gray};
    case Urgency::unknown:
        return {"questionmark.circle", Tone::gray};
    }
    return {};
}

} // namespace veridane::ui
