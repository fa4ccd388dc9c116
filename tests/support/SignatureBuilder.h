#pragma once

#include "support/Bytes.h"

#include <optional>
#include <string>

/// Code signatures for tests, as far as they are read: keys and hashes are filled in with anything.
namespace veridane::test {

/// What a signature says and in which of the shapes that occur on real Macs.
struct SignatureSpec {
    std::string identifier = "com.example.app";
    std::optional<std::string> teamIdentifier; // in the code directory

    /// The leaf certificate's subject, behind the user ID that it always begins with. With none of
    /// the four the signature is ad hoc.
    std::optional<std::string> leafCommonName;
    std::optional<std::string> leafOrganisationalUnit;
    std::optional<std::string> leafOrganisation;
    std::optional<std::string> leafEmail;

    bool signerByKeyIdentifier = false; // else by issuer and serial
    bool withTimeStamp = true;          // a nested CMS with certificates of its own
    /// Of all elements given (DER), of those around the certificates left open (BER, as in nearly
    /// every real one), or left open wherever BER allows it.
    enum class Lengths { given, partlyOpen, open };
    Lengths lengths = Lengths::partlyOpen;
};

/// The embedded-signature superblob: code directory, requirements and CMS (empty if ad hoc).
[[nodiscard]] Bytes embeddedSignature(const SignatureSpec& spec);

/// The code directory blob and the bare CMS, as they stand as two files in _CodeSignature. The CMS
/// holds a root, an intermediate and the leaf certificate, all with the same serial number. Empty
/// for an ad-hoc signature.
[[nodiscard]] Bytes codeDirectoryFile(const SignatureSpec& spec);
[[nodiscard]] Bytes cmsFile(const SignatureSpec& spec);

/// The content with its header.
[[nodiscard]] Bytes signatureBlob(std::uint32_t magic, const Bytes& content);

} // namespace veridane::test
