#include "ui/AppearanceMode.h"

#include "model/RawStrings.h"
#include "platform/Language.h"

namespace veridane::ui {
namespace {

constexpr RawStrings::Table<appearanceModes.size()> rawStrings = {"system", "light", "dark"};

} // namespace

std::string_view rawString(AppearanceMode mode) {
    return RawStrings::textOf(rawStrings, mode);
}

AppearanceMode appearanceModeFromRawString(std::string_view text) {
    return RawStrings::valueOf<AppearanceMode>(rawStrings, text).value_or(AppearanceMode::system);
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
