#include "model/ScanItem.h"

#include "model/RawStrings.h"
#include "platform/Language.h"

namespace veridane {
namespace {

constexpr RawStrings::Table<itemKindCount> kindTexts = {
    "application",     "embeddedHelper", "commandLineTool", "launchService", "audioPlugin",
    "systemExtension", "other"};
constexpr RawStrings::Table<updateSourceCount> sourceTexts = {"macAppStore", "sparkle",
                                                              "developerID", "unsigned", "unknown"};

} // namespace

std::string_view rawString(ItemKind kind) {
    return RawStrings::textOf(kindTexts, kind);
}

std::string_view rawString(UpdateSource source) {
    return RawStrings::textOf(sourceTexts, source);
}

std::optional<ItemKind> itemKindFromRawString(std::string_view text) {
    return RawStrings::valueOf<ItemKind>(kindTexts, text);
}

std::optional<UpdateSource> updateSourceFromRawString(std::string_view text) {
    return RawStrings::valueOf<UpdateSource>(sourceTexts, text);
}

std::string displayName(ItemKind kind) {
    switch (kind) {
    case ItemKind::application:
        return localized("Programme");
    case ItemKind::embeddedHelper:
        return localized("Eingebettete Helfer");
    case ItemKind::commandLineTool:
        return localized("Kommandozeilen-Tools");
    case ItemKind::launchService:
        return localized("Hintergrunddienste");
    case ItemKind::audioPlugin:
        return localized("Audio-Plugins");
    case ItemKind::systemExtension:
        return localized("Erweiterungen");
    case ItemKind::other:
        return localized("Sonstiges");
    }
    return {};
}

std::string displayName(UpdateSource source) {
    switch (source) {
    case UpdateSource::macAppStore:
        return "Mac App Store"; // a name
    case UpdateSource::sparkle:
        return localized("Sparkle (Auto-Update)");
    case UpdateSource::developerID:
        return localized("Entwickler-Website");
    case UpdateSource::unsigned_:
        return localized("Nicht signiert");
    case UpdateSource::unknown:
        return localized("Unbekannt");
    }
    return {};
}

std::string_view symbolName(ItemKind kind) {
    switch (kind) {
    case ItemKind::application:
        return "app.badge";
    case ItemKind::embeddedHelper:
        return "shippingbox";
    case ItemKind::commandLineTool:
        return "terminal";
    case ItemKind::launchService:
        return "gearshape.2";
    case ItemKind::audioPlugin:
        return "waveform";
    case ItemKind::systemExtension:
        return "puzzlepiece.extension";
    case ItemKind::other:
        return "doc";
    }
    return {};
}

} // namespace veridane
