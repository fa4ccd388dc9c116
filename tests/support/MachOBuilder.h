#pragma once

#include "support/Bytes.h"

#include <utility>

/// Mach-O files for tests: valid headers and load commands around no code at all. Damaged samples
/// are made from these by one named change.
namespace veridane::test {

enum class Slice { arm64, arm64e, x86_64, i386, ppc, ppc64, arm, unlisted };

/// A thin executable. PowerPC slices are big-endian, the others little-endian. With a `signature`
/// (a superblob) it ends in that, pointed to by LC_CODE_SIGNATURE.
[[nodiscard]] Bytes thinMachO(Slice slice, const Bytes& signature = {});

struct UniversalPart {
    Slice slice;
    Bytes file;

    UniversalPart(Slice s) : UniversalPart(s, thinMachO(s)) {}
    UniversalPart(Slice s, Bytes thin) : slice(s), file(std::move(thin)) {}
};

/// A universal file of thin files in the given order, each at an offset aligned to a page. `wide`
/// writes the table with 64-bit offsets.
[[nodiscard]] Bytes universalMachO(const std::vector<UniversalPart>& parts, bool wide = false);

/// Thin for one slice, universal for several, each with the signature.
[[nodiscard]] Bytes machO(const std::vector<Slice>& slices, const Bytes& signature = {});

} // namespace veridane::test
