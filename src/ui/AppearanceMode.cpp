#include "ui/AppearanceMode.h"

#include "platform/Language.h"

#include <algorithm>

namespace veridane::ui {

std::string_view rawString(AppearanceMode mode) {
    switch (mode) {
    case AppearanceMode::system:
        return "system";
    case AppearanceMode::light:
        return "light";
    case AppearanceMode::dark:
        return "dark";
    }
    return {};
}

AppearanceMode appearanceModeFromRawString(std::string_view text) {
    const auto* const mode = std::ranges::find(
        appearanceModes, text, [](AppearanceMode candidate) { return rawString(candidate); });
    return mode == appearanceModes.end() ? AppearanceMode::system : *mode;
}

std::string label(AppearanceMode mode) {
    switch (mode) {
    case AppearanceMode::system:
        return localized("System folgen");
    case AppearanceMode::light:
        return localized("Hell");
    case AppearanceMode::dark:
        return localized("Dunkel");
    }
    return {};
}

std::string description(AppearanceMode mode) {
    switch (mode) {
    case AppearanceMode::system:
        return localized("Folgt automatisch der Hell-/Dunkel-Einstellung von macOS.");
    case AppearanceMode::light:
        return localized("Die App wird immer im hellen Modus angezeigt.");
    case AppearanceMode::dark:
        return localized("Die App wird immer im dunklen Modus angezeigt.");
    }
    return {};
}

std::string_view symbolName(AppearanceMode mode) {
    switch (mode) {
    case AppearanceMode::system:
        return "circle.lefthalf.filled";
    case AppearanceMode::light:
        return "sun.max.fill";
    case AppearanceMode::dark:
        return "moon.fill";
    }
    return {};
}

} // namespace veridane::ui
