#include "coordination/StatusFilter.h"

#include "model/RawStrings.h"
#include "platform/Language.h"

namespace veridane {
namespace {

constexpr RawStrings::Table<statusFilterCount> rawStrings = {
    "all",   "needsAttention", "breaksOnMacOS28", "partiallyAffected", "switchToNative",
    "ready", "notRelevant",
};

} // namespace

bool passes(Urgency urgency, StatusFilter filter) {
    switch (filter) {
    case StatusFilter::all:
        return true;
    case StatusFilter::needsAttention:
        return needsAttention(urgency);
    case StatusFilter::breaksOnMacOS28:
        return urgency == Urgency::breaksOnMacOS28;
    case StatusFilter::partiallyAffected:
        return urgency == Urgency::partiallyAffected;
    case StatusFilter::switchToNative:
        return urgency == Urgency::switchToNative;
    case StatusFilter::ready:
        return urgency == Urgency::ready;
    case StatusFilter::notRelevant:
        return urgency == Urgency::alreadyBroken || urgency == Urgency::unknown;
    }
    return false;
}

std::string_view rawString(StatusFilter filter) {
    return RawStrings::textOf(rawStrings, filter);
}

std::string displayName(StatusFilter filter) {
    switch (filter) {
    case StatusFilter::all:
        return localized("Alle");
    case StatusFilter::needsAttention:
        return localized("Handlungsbedarf");
    case StatusFilter::breaksOnMacOS28:
        return displayName(Urgency::breaksOnMacOS28);
    case StatusFilter::partiallyAffected:
        return displayName(Urgency::partiallyAffected);
    case StatusFilter::switchToNative:
        return displayName(Urgency::switchToNative);
    case StatusFilter::ready:
        return displayName(Urgency::ready);
    case StatusFilter::notRelevant:
        return localized("Kein Rosetta-Thema");
    }
    return {};
}

} // namespace veridane
