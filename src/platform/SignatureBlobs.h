#pragma once

#include "platform/ByteSource.h"
#include "platform/CodeSignature.h"

#include <optional>

namespace veridane {

/// What an embedded signature declares: a superblob, or a code directory on its own. Zero bytes
/// behind it are passed over. Nothing if there is no code directory or it does not fit.
[[nodiscard]] std::optional<CodeSignature> parseEmbeddedSignature(const ByteSource& signature);

/// The same for the two files that stand beside a bundle's sealed resources: a code directory, and
/// a CMS with or without its wrapper. An empty `cms` is that of an ad-hoc signature.
[[nodiscard]] std::optional<CodeSignature> parseDetachedSignature(const ByteSource& codeDirectory,
                                                                  const ByteSource& cms);

} // namespace veridane
