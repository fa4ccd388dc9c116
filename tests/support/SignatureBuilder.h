#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Code signatures for tests, with certificates made on the fly.
namespace veridane::test {

using Bytes = std::vector<std::uint8_t>;

/// What a signature says and in which of the shapes that occur on real Macs.
struct SignatureSpec {
    std::string identifier = "com.example.app";
    std::optional<std::string>
        teamIdentifier; // in the code directory (none in a version before 0x20200)

    /// The leaf certificate's subject, behind the user ID that it always begins with. With none of
    /// the four the signature is ad hoc.
    std::optional<std::string> leafCommonName;
    std::optional<std::string> leafOrganisationalUnit;
    std::optional<std::string> leafOrganisation;
    std::optional<std::string> leafEmail;

    enum class AdHocShape { emptyCmsWrapper, noCmsBlob, codeDirectoryOnly };
    AdHocShape adHocShape = AdHocShape::emptyCmsWrapper;

    bool signerByKeyIdentifier = false; // else by issuer and serial
    bool withTimeStamp = true;          // a nested CMS with certificates of its own
    bool indefiniteLengths = true;      // BER, as nearly every real one; else DER
    std::uint32_t codeDirectoryVersion = 0x20400;
    std::uint32_t padding = 0; // zero bytes behind the signature
};

/// The embedded-signature superblob.
[[nodiscard]] Bytes embeddedSignature(const SignatureSpec& spec);

/// The code directory blob and the bare CMS, as they stand as two files in _CodeSignature. The CMS
/// holds the root, the intermediate and, last, the leaf certificate; all of them have the same
/// serial number. Empty for an ad-hoc signature.
[[nodiscard]] Bytes codeDirectoryFile(const SignatureSpec& spec);
[[nodiscard]] Bytes cmsFile(const SignatureSpec& spec);

} // namespace veridane::test
