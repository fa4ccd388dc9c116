#include "model/Recommendation.h"

#include "model/NativeCounterparts.h"
#include "model/RawStrings.h"
#include "platform/Language.h"

namespace veridane {
namespace {

constexpr RawStrings::Table<urgencyCount> caseNames = {
    "breaksOnMacOS28", "partiallyAffected", "switchToNative", "ready", "alreadyBroken", "unknown"};

std::string verdictFor(Urgency urgency) {
    switch (urgency) {
    case Urgency::breaksOnMacOS28:
        return localized("Benötigt Rosetta 2");
    case Urgency::partiallyAffected:
        return localized("Läuft weiter – Intel-Teile benötigen Rosetta 2");
    case Urgency::switchToNative:
        return localized("Intel-Version – native Version ist bereits installiert");
    case Urgency::ready:
        return localized("Bereit – läuft dauerhaft nativ");
    case Urgency::alreadyBroken:
        return localized("Läuft schon heute nicht auf diesem Mac");
    case Urgency::unknown:
        return localized("Konnte nicht eindeutig geprüft werden");
    }
    return {};
}

std::string adviceFor(Urgency urgency) {
    switch (urgency) {
    case Urgency::breaksOnMacOS28:
        return localized(
            "Diese App läuft nur über Rosetta 2 – die Übersetzung, mit der Intel-Programme auf "
            "Apple Silicon laufen. Laut Apple ist Rosetta 2 bis einschließlich macOS 27 verfügbar; "
            "ab macOS 28 nur noch für einzelne ältere, nicht mehr gepflegte Spiele. Such "
            "rechtzeitig nach einer nativen Apple-Silicon-Version oder plane einen Ersatz.");
    case Urgency::partiallyAffected:
        return localized(
            "Die Haupt-App läuft nativ und startet weiterhin. Einzelne eingebettete "
            "Intel-Komponenten (z. B. Plugins oder Hilfsprozesse) benötigen jedoch Rosetta 2. "
            "Apple stellt Rosetta 2 bis einschließlich macOS 27 bereit; ab macOS 28 nur noch für "
            "einzelne alte Spiele – danach fehlen diese Komponenten. Prüfe beim Hersteller, ob es "
            "native Versionen gibt.");
    case Urgency::switchToNative:
        return localized(
            "Eine native (Apple-Silicon-)Version derselben Software ist bereits installiert – also "
            "kein Verlust. Diese Intel-Variante benötigt Rosetta 2 (laut Apple bis einschließlich "
            "macOS 27 verfügbar, ab macOS 28 nur noch für alte Spiele) und kann nach einer Prüfung "
            "entfernt werden.");
    case Urgency::ready:
        return localized(
            "Läuft vollständig nativ auf Apple Silicon – auch auf macOS 27 und neueren Versionen "
            "unproblematisch. Kein Rosetta erforderlich.");
    case Urgency::alreadyBroken:
        return localized(
            "Nur als 32-Bit-Intel oder PowerPC vorhanden – läuft auf Apple Silicon ohnehin nicht, "
            "auch nicht mit Rosetta. Daran ändert macOS 27 nichts; die App ist auf diesem Mac "
            "nicht nutzbar.");
    case Urgency::unknown:
        return localized(
            "Die Architektur konnte nicht eindeutig bestimmt werden (z. B. Skript-Wrapper oder "
            "Datei nicht lesbar). Bitte manuell prüfen.");
    }
    return {};
}

} // namespace

std::optional<Urgency> urgencyFromRawValue(int value) {
    if (value < 0 || value >= urgencyCount)
        return std::nullopt;
    return static_cast<Urgency>(value);
}

bool needsAttention(Urgency urgency) {
    return urgency == Urgency::breaksOnMacOS28 || urgency == Urgency::partiallyAffected;
}

std::string displayName(Urgency urgency) {
    switch (urgency) {
    case Urgency::breaksOnMacOS28:
        return localized("Benötigt Rosetta 2");
    case Urgency::partiallyAffected:
        return localized("Teilweise betroffen");
    case Urgency::switchToNative:
        return localized("Native verfügbar");
    case Urgency::ready:
        return localized("Bereit");
    case Urgency::alreadyBroken:
        return localized("Läuft schon heute nicht");
    case Urgency::unknown:
        return localized("Unklar");
    }
    return {};
}

std::string_view caseName(Urgency urgency) {
    return RawStrings::textOf(caseNames, urgency);
}

Recommendation::Recommendation(CompatibilityStatus status, bool hasIntelComponents,
                               bool hasNativeCounterpart)
    : urgency(urgencyOf(status, hasIntelComponents, hasNativeCounterpart)),
      verdict(verdictFor(urgency)), advice(adviceFor(urgency)) {}

Urgency urgencyOf(CompatibilityStatus status, bool hasIntelComponents, bool hasNativeCounterpart) {
    switch (status) {
    case CompatibilityStatus::native:
        return hasIntelComponents ? Urgency::partiallyAffected : Urgency::ready;
    case CompatibilityStatus::needsRosetta:
        return hasNativeCounterpart ? Urgency::switchToNative : Urgency::breaksOnMacOS28;
    case CompatibilityStatus::incompatible:
        return Urgency::alreadyBroken;
    case CompatibilityStatus::unknown:
        return Urgency::unknown;
    }
    return Urgency::unknown;
}

Urgency urgencyOf(const ScanItem& item, const NativeCounterparts& counterparts) {
    return urgencyOf(item.status, item.hasHiddenRosettaDependency(), counterparts.has(item));
}

Recommendation recommendationFor(const ScanItem& item, const NativeCounterparts& counterparts) {
    return Recommendation(item.status, item.hasHiddenRosettaDependency(), counterparts.has(item));
}

} // namespace veridane
