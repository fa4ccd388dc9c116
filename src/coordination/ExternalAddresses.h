#pragma once

#include "model/ScanItem.h"

#include <string>

/// Addresses that other programs open for the user.
namespace veridane::ExternalAddresses {

/// The pane of the system settings that grants full disk access.
[[nodiscard]] std::string fullDiskAccessSettings();

/// A search of the web for a version of the object that runs natively.
[[nodiscard]] std::string nativeVersionSearch(const ScanItem& item);

/// A search of the Mac App Store for the object's name.
[[nodiscard]] std::string appStoreSearch(const ScanItem& item);

} // namespace veridane::ExternalAddresses
