#include "model/UpdateCheckResult.h"

#include "platform/Language.h"

namespace veridane {

std::string displayName(const UpdateCheckResult& result) {
    using Case = UpdateCheckResult::Case;
    switch (result.kind) {
    case Case::notChecked:
        return "—";
    case Case::checking:
        return localized("Prüfe …");
    case Case::upToDate:
        return localized("Aktuell (%@)", result.payload);
    case Case::updateAvailable:
        return localized("Update verfügbar → %@", result.payload);
    case Case::noFeed:
        return localized("Keine Quelle");
    case Case::failed:
        return localized("Fehler: %@", result.payload);
    }
    return {};
}

} // namespace veridane
