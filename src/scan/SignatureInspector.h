#pragma once

#include "platform/CodeSignature.h"
#include "platform/FileSystem.h"

#include <optional>
#include <string>

namespace veridane {

/// Who signed an object, as far as the signature itself says. Nothing here tells a good signature
/// from a broken one.
struct SignatureIdentity {
    std::optional<std::string> vendor;
    std::optional<std::string> teamIdentifier;
    bool isSigned = false;
    bool isAppleSigned = false; // the certificate names one of Apple's own signing identities

    bool operator==(const SignatureIdentity&) const = default;
};

namespace SignatureInspector {

/// An unsigned object, a missing one and an unreadable one all give the empty identity.
[[nodiscard]] SignatureIdentity inspectFile(const FileSystem& files, const Path& file);
[[nodiscard]] SignatureIdentity inspectBundle(const FileSystem& files, const Path& bundle,
                                              const std::optional<Path>& executable);

/// What the signature's declarations mean; absent when there is nothing to read.
[[nodiscard]] SignatureIdentity identityOf(const std::optional<CodeSignature>& signature);

/// The readable vendor in a certificate's subject summary: without the kind of certificate in front
/// and the team in brackets behind. Can be empty and still be there.
[[nodiscard]] std::optional<std::string>
vendorFromSummary(const std::optional<std::string>& summary);

} // namespace SignatureInspector
} // namespace veridane
