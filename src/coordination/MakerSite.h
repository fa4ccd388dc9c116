#pragma once

#include <string>
#include <string_view>

/// The maker's site on the web.
namespace veridane::MakerSite {

inline constexpr std::string_view contactAddress = "hallo@mirefold.example";

/// Scheme and host of the site, with a port where it needs one and no slash at the end: what the
/// environment variable VERIDANE_SITE holds, for tests and mirrors, else the maker's own.
[[nodiscard]] std::string root();

/// The address of a page; `path` begins with a slash.
[[nodiscard]] std::string page(std::string_view path);

} // namespace veridane::MakerSite
