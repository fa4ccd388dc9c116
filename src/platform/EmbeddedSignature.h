#pragma once

#include "platform/ByteSource.h"

#include <optional>

namespace veridane {

/// Whether the file begins like a Mach-O or a universal file. The scan's own judgement of a file's
/// architectures looks closer; here only the place of its signature is in question.
[[nodiscard]] bool canHoldEmbeddedSignature(const ByteSource& file);

/// The bytes that LC_CODE_SIGNATURE points to, in a thin file or in the slice of a universal file
/// that an Apple-silicon Mac would run: arm64e, else arm64, else the first. Nothing if that slice
/// is not signed, whatever the others are, or if anything on the way lies outside the file.
[[nodiscard]] std::optional<ByteSource> embeddedSignature(const ByteSource& file);

} // namespace veridane
