#include "model/ArchitectureReport.h"

#include "model/RawStrings.h"
#include "platform/Language.h"

#include <algorithm>

namespace veridane {
namespace {

constexpr RawStrings::Table<cpuArchCount> architectureTexts = {
    "arm64", "arm64e", "x86_64", "i386", "ppc", "ppc64", "arm", "unknown"};
constexpr RawStrings::Table<compatibilityStatusCount> statusTexts = {"native", "needsRosetta",
                                                                     "incompatible", "unknown"};

bool contains(const std::vector<CPUArch>& architectures, CPUArch architecture) {
    return std::ranges::find(architectures, architecture) != architectures.end();
}

} // namespace

constinit const ArchitectureReport emptyReport{};

CompatibilityStatus ArchitectureReport::compatibilityStatus() const {
    if (!isMachO || architectures.empty())
        return CompatibilityStatus::unknown;
    if (contains(architectures, CPUArch::arm64) || contains(architectures, CPUArch::arm64e))
        return CompatibilityStatus::native;
    if (contains(architectures, CPUArch::x86_64))
        return CompatibilityStatus::needsRosetta;
    return CompatibilityStatus::incompatible;
}

std::string ArchitectureReport::summaryText() const {
    if (!isMachO)
        return "—";
    if (architectures.empty())
        return "keine Slices";
    std::string text;
    for (const CPUArch architecture : architectures) {
        if (!text.empty())
            text += " + ";
        text += rawString(architecture);
    }
    return text;
}

std::string_view rawString(CPUArch architecture) {
    return RawStrings::textOf(architectureTexts, architecture);
}

std::string_view rawString(CompatibilityStatus status) {
    return RawStrings::textOf(statusTexts, status);
}

std::optional<CPUArch> cpuArchFromRawString(std::string_view text) {
    return RawStrings::valueOf<CPUArch>(architectureTexts, text);
}

std::optional<CompatibilityStatus> compatibilityStatusFromRawString(std::string_view text) {
    return RawStrings::valueOf<CompatibilityStatus>(statusTexts, text);
}

std::string displayName(CompatibilityStatus status) {
    switch (status) {
    case CompatibilityStatus::native:
        return localized("Nativ");
    case CompatibilityStatus::needsRosetta:
        return localized("Benötigt Rosetta");
    case CompatibilityStatus::incompatible:
        return localized("Nicht lauffähig");
    case CompatibilityStatus::unknown:
        return localized("Unbekannt");
    }
    return {};
}

} // namespace veridane
