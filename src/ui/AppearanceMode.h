#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace veridane::ui {

/// Whether the windows are light or dark, as the user chose it.
enum class AppearanceMode : std::uint8_t { system, light, dark };
inline constexpr std::array appearanceModes = {AppearanceMode::system, AppearanceMode::light,
                                               AppearanceMode::dark};

/// The form that is stored.
[[nodiscard]] std::string_view rawString(AppearanceMode mode);

/// Any text that names no mode means the system's.
[[nodiscard]] AppearanceMode appearanceModeFromRawString(std::string_view text);

/// Texts in the language in force.
[[nodiscard]] std::string label(AppearanceMode mode);
[[nodiscard]] std::string description(AppearanceMode mode);

[[nodiscard]] std::string_view symbolName(AppearanceMode mode);

} // namespace veridane::ui
