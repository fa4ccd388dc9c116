#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

/// Mach-O files for tests: valid headers and load commands around no code at all. Damaged samples
/// are made from these by one named change.
namespace veridane::test {

using Bytes = std::vector<std::uint8_t>;

enum class Slice { arm64, arm64e, x86_64, i386, ppc, ppc64, arm, unlisted };

/// A thin executable. PowerPC slices are big-endian, the others little-endian. With a `signature`
/// (a superblob) it ends in that, pointed to by LC_CODE_SIGNATURE.
[[nodiscard]] Bytes thinMachO(Slice slice, const Bytes& signature = {});

/// A universal file of thin files in the given order, each at an offset aligned to its page size.
/// `wide` writes the table with 64-bit offsets.
struct UniversalPart {
    Slice slice;
    Bytes file;
};
[[nodiscard]] Bytes universalMachO(const std::vector<UniversalPart>& parts, bool wide = false);
[[nodiscard]] Bytes universalMachO(const std::vector<Slice>& slices);

/// Big-endian words, for making headers by hand.
void appendBigEndian32(Bytes& bytes, std::uint32_t value);
void appendLittleEndian32(Bytes& bytes, std::uint32_t value);

} // namespace veridane::test
