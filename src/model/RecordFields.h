#pragma once

#include "model/CachedScanSnapshot.h"

#include <array>
#include <concepts>
#include <type_traits>

/// The stored fields of each record by their keys, in the order of writing: one list for the writer
/// and the reader. A field is required unless it is a std::optional.
namespace veridane::json {

template <typename T, typename Record>
concept MaybeConst = std::same_as<std::remove_const_t<T>, Record>;

/// Calls `visit(key, field)` for each field of the record.
template <MaybeConst<CachedScanSnapshot> T, typename Visit>
void visitFields(T& snapshot, Visit visit) {
    visit("schemaVersion", snapshot.schemaVersion);
    visit("scannedAt", snapshot.scannedAt);
    visit("options", snapshot.options);
    visit("items", snapshot.items);
}

template <MaybeConst<ScanOptions> T, typename Visit>
void visitFields(T& options, Visit visit) {
    visit("includeApplications", options.includeApplications);
    visit("includeSystemApps", options.includeSystemApps);
    visit("includeCommandLineTools", options.includeCommandLineTools);
    visit("includeLaunchServices", options.includeLaunchServices);
    visit("includeAudioPlugins", options.includeAudioPlugins);
    visit("includeExtensions", options.includeExtensions);
}

template <MaybeConst<ScanItem> T, typename Visit>
void visitFields(T& item, Visit visit) {
    visit("id", item.id);
    visit("name", item.name);
    visit("path", item.path);
    visit("kind", item.kind);
    visit("architecture", item.architecture);
    visit("status", item.status);
    visit("intelComponents", item.intelComponents);
    visit("bundleIdentifier", item.bundleIdentifier);
    visit("version", item.version);
    visit("buildNumber", item.buildNumber);
    visit("vendor", item.vendor);
    visit("teamIdentifier", item.teamIdentifier);
    visit("categoryDescription", item.categoryDescription);
    visit("sizeOnDisk", item.sizeOnDisk);
    visit("lastModified", item.lastModified);
    visit("updateSource", item.updateSource);
    visit("sparkleFeedURL", item.sparkleFeedURL);
    visit("updateResult", item.updateResult);
}

template <MaybeConst<ArchitectureReport> T, typename Visit>
void visitFields(T& report, Visit visit) {
    visit("architectures", report.architectures);
    visit("isMachO", report.isMachO);
}

/// What has such a list.
template <typename T>
concept Record = requires(T& record) {
    visitFields(record, [](const char*, auto&) {});
};

/// An update result is an object whose one key is the name of its case.
struct UpdateResultForm {
    UpdateCheckResult::Case kind;
    const char* name;
    const char* payloadKey; // null for a case without a payload
};
inline constexpr std::array<UpdateResultForm, 6> updateResultForms = {{
    {UpdateCheckResult::Case::notChecked, "notChecked", nullptr},
    {UpdateCheckResult::Case::checking, "checking", nullptr},
    {UpdateCheckResult::Case::upToDate, "upToDate", "latest"},
    {UpdateCheckResult::Case::updateAvailable, "updateAvailable", "latest"},
    {UpdateCheckResult::Case::noFeed, "noFeed", nullptr},
    {UpdateCheckResult::Case::failed, "failed", "reason"},
}};

} // namespace veridane::json
