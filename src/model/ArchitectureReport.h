#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veridane {

/// The processors that Mach-O code on a Mac was built for, in display order.
enum class CPUArch : std::uint8_t { arm64, arm64e, x86_64, i386, ppc, ppc64, arm, unknown };
inline constexpr std::size_t cpuArchCount = 8;

/// Whether an object runs on Apple silicon, and how.
enum class CompatibilityStatus : std::uint8_t { native, needsRosetta, incompatible, unknown };
inline constexpr std::size_t compatibilityStatusCount = 4;

/// What the header of a file says.
struct ArchitectureReport {
    std::vector<CPUArch> architectures; // the slices in file order, each once
    bool isMachO = false;               // the file carries a Mach-O or universal header

    /// One Apple-silicon slice is enough for `native`. Code for 32-bit Intel is not translated by
    /// Rosetta 2, so that only a 64-bit Intel slice gives `needsRosetta`.
    [[nodiscard]] CompatibilityStatus compatibilityStatus() const;

    /// The text that is shown: "arm64 + x86_64", "—" for what is no Mach-O file, "keine Slices" for
    /// a header without any. Not translated.
    [[nodiscard]] std::string summaryText() const;

    bool operator==(const ArchitectureReport&) const = default;
};

/// The report of a file without a readable header.
extern const ArchitectureReport emptyReport;

[[nodiscard]] std::string_view rawString(CPUArch architecture);
[[nodiscard]] std::string_view rawString(CompatibilityStatus status);
[[nodiscard]] std::optional<CPUArch> cpuArchFromRawString(std::string_view text);
[[nodiscard]] std::optional<CompatibilityStatus>
compatibilityStatusFromRawString(std::string_view text);

/// The label in the language in force.
[[nodiscard]] std::string displayName(CompatibilityStatus status);

} // namespace veridane
