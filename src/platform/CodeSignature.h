#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>

namespace veridane {

/// What an object's code signature declares. Nothing is validated.
struct CodeSignature {
    bool hasIdentifier = false;                    // a signing identifier is there
    std::optional<std::string> teamIdentifier;     // as stored, valid UTF-8
    std::optional<std::string> leafSubjectSummary; // of the signer's certificate; absent for an
                                                   // ad-hoc signature

    bool operator==(const CodeSignature&) const = default;
};

/// Reads the signature of a file or a bundle: embedded in a Mach-O file (for a universal file, in
/// the slice that an Apple-silicon Mac would run: arm64e, else arm64, else the first), or, for a
/// bundle whose main executable carries none, beside its sealed resources. `executable` is the main
/// executable of a bundle, or nothing. Nothing is given for an unsigned object or one that cannot
/// be read. Format: Mach-O LC_CODE_SIGNATURE, embedded-signature superblob, CMS (RFC 5652).
[[nodiscard]] std::optional<CodeSignature> readFileSignature(const FileSystem& files,
                                                             const Path& file);
[[nodiscard]] std::optional<CodeSignature>
readBundleSignature(const FileSystem& files, const Path& bundle,
                    const std::optional<Path>& executable);

} // namespace veridane
