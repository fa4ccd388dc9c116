#pragma once

#include "model/ArchitectureReport.h"
#include "model/UpdateCheckResult.h"
#include "platform/Date.h"
#include "platform/Uuid.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veridane {

/// What sort of object it is, in the order of the kind list.
enum class ItemKind : std::uint8_t {
    application,
    embeddedHelper,
    commandLineTool,
    launchService,
    audioPlugin,
    systemExtension,
    other
};
inline constexpr std::size_t itemKindCount = 7;

/// Where a newer version of an object would come from.
enum class UpdateSource : std::uint8_t { macAppStore, sparkle, developerID, unsigned_, unknown };
inline constexpr std::size_t updateSourceCount = 5;

/// One object that a scan has found. All text is valid UTF-8.
struct ScanItem {
    Uuid id; // new for every object of every scan
    std::string name;
    std::string path; // absolute, as found, links not resolved
    ItemKind kind = ItemKind::other;
    ArchitectureReport architecture;
    CompatibilityStatus status = CompatibilityStatus::unknown;
    std::vector<std::string> intelComponents; // relative paths of files that cannot run natively
    std::optional<std::string> bundleIdentifier;
    std::optional<std::string> version;
    std::optional<std::string> buildNumber;
    std::optional<std::string> vendor;
    std::optional<std::string> teamIdentifier;
    std::optional<std::string> categoryDescription;
    std::optional<std::int64_t> sizeOnDisk; // bytes
    std::optional<Date> lastModified;
    UpdateSource updateSource = UpdateSource::unknown;
    std::optional<std::string> sparkleFeedURL; // text as found
    UpdateCheckResult updateResult;

    /// A native object that still carries files which need Rosetta 2 or do not run at all.
    [[nodiscard]] bool hasHiddenRosettaDependency() const {
        return status == CompatibilityStatus::native && !intelComponents.empty();
    }

    bool operator==(const ScanItem&) const = default;
};

[[nodiscard]] std::string_view rawString(ItemKind kind);
[[nodiscard]] std::string_view rawString(UpdateSource source);
[[nodiscard]] std::optional<ItemKind> itemKindFromRawString(std::string_view text);
[[nodiscard]] std::optional<UpdateSource> updateSourceFromRawString(std::string_view text);

/// Labels in the language in force.
[[nodiscard]] std::string displayName(ItemKind kind);
[[nodiscard]] std::string displayName(UpdateSource source);

/// The name of the symbol that stands for the kind.
[[nodiscard]] std::string_view symbolName(ItemKind kind);

} // namespace veridane
