#pragma once

#include "platform/Url.h"

#include <optional>
#include <string>
#include <string_view>

/// The App Store's public lookup service: the question to it, and what it answers. Safe on any
/// thread.
namespace veridane {

/// Scheme, host and port of the lookup service: what the environment variable VERIDANE_STORE_LOOKUP
/// holds, for tests and mirrors, else Apple's own.
[[nodiscard]] std::string storeLookupService();

/// Where the German store tells what it has under a bundle identifier. `service` is a scheme and a
/// host, with a port where it needs one. Nothing if the identifier cannot stand in a URL as it is.
[[nodiscard]] std::optional<Url> storeLookupUrl(std::string_view service,
                                                std::string_view bundleIdentifier);

/// The version on sale, as the first result of the service's answer tells it. Nothing if there is
/// no result or if the answer has any other form, such as that of an error page.
[[nodiscard]] std::optional<std::string> storeVersion(std::string_view body);

} // namespace veridane
