#pragma once

#include "model/ScanItem.h"
#include "platform/FileSystem.h"
#include "platform/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

/// Reads one bundle: an application, an audio plug-in, an extension. Safe on any thread.
namespace veridane::BundleInspector {

/// Always gives an item, however little can be read of the bundle.
[[nodiscard]] ScanItem inspect(const FileSystem& files, const Path& bundle, ItemKind kind);

/// The main executable: the one that the Info.plist names, else the first file that could be it.
[[nodiscard]] std::optional<Path> resolveExecutable(const FileSystem& files, const Path& bundle,
                                                    const std::optional<PropertyList>& infoPlist);

/// The readable name of an application category identifier.
[[nodiscard]] std::string categoryLabel(std::string_view category);

/// The second part of a reverse-DNS identifier, capitalised; nothing if there is none.
[[nodiscard]] std::optional<std::string>
vendorFromBundleIdentifier(const std::optional<std::string>& identifier);

} // namespace veridane::BundleInspector
