#pragma once

#include "platform/ByteView.h"

#include <optional>
#include <string>

namespace veridane {

/// A short text for the certificate that a signed CMS (RFC 5652, in BER or DER) names as its first
/// signer's: the common name of its subject, else the organisational unit, else the organisation,
/// else the e-mail address. Valid UTF-8, whatever string type the certificate uses. Nothing for
/// other bytes, and if the CMS does not hold that certificate. Nothing is verified, and what stands
/// behind the CMS is passed over. Safe on any thread.
[[nodiscard]] std::optional<std::string> signerSubjectSummary(ByteView cms);

} // namespace veridane
