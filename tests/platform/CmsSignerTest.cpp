#include "platform/CmsSigner.h"

#include "support/MachOBuilder.h"
#include "support/SignatureBuilder.h"

#include <gtest/gtest.h>
#include <openssl/cms.h>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/x509.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace veridane::test {
namespace {

using Spec = SignatureSpec;

/// The subject of the signer's certificate as OpenSSL's own decoder finds it. The certificate also
/// has to be the last of the chain, as it is in real signatures.
std::string subjectByFullDecoder(const Bytes& bytes) {
    const unsigned char* at = bytes.data();
    const std::unique_ptr<CMS_ContentInfo, decltype(&CMS_ContentInfo_free)> cms(
        d2i_CMS_ContentInfo(nullptr, &at, static_cast<long>(bytes.size())), &CMS_ContentInfo_free);
    if (!cms)
        return "not a CMS";
    STACK_OF(X509)* certificates = CMS_get1_certs(cms.get());
    const X509* last = sk_X509_value(certificates, sk_X509_num(certificates) - 1);
    CMS_SignerInfo* signer = sk_CMS_SignerInfo_value(CMS_get0_SignerInfos(cms.get()), 0);
    std::string subject = "not the last certificate";
    if (CMS_SignerInfo_cert_cmp(signer, const_cast<X509*>(last)) == 0) {
        char* line = X509_NAME_oneline(X509_get_subject_name(last), nullptr, 0);
        subject = line;
        OPENSSL_free(line);
    }
    sk_X509_pop_free(certificates, X509_free);
    return subject;
}

/// The same elements with every length left open, and the signer's key identifier in pieces.
Bytes withOpenLengths(const unsigned char* at, const unsigned char* end) {
    Bytes result;
    while (at < end) {
        const std::uint8_t first = *at;
        long length = 0;
        int tag = 0, tagClass = 0;
        const int form = ASN1_get_object(&at, &length, &tag, &tagClass, end - at);
        const bool isKeyIdentifier = first == 0x80 && length == 2;
        const auto append = [&result](const Bytes& bytes) {
            result.insert(result.end(), bytes.begin(), bytes.end());
        };
        if (isKeyIdentifier) {
            append({0xA0, 0x80, 0x04, 1, at[0], 0x24, 0x80, 0x04, 1, at[1], 0, 0, 0, 0});
        } else if ((form & V_ASN1_CONSTRUCTED) != 0) {
            append({first, 0x80});
            append(withOpenLengths(at, at + length));
            append({0, 0});
        } else {
            append({first, 0x82, static_cast<std::uint8_t>(length >> 8),
                    static_cast<std::uint8_t>(length)});
            append(Bytes(at, at + length));
        }
        at += length;
    }
    return result;
}

/// The sample with the last occurrence of some bytes replaced by as many others.
Bytes damaged(Bytes sample, const Bytes& from, const Bytes& to) {
    const auto found = std::ranges::find_end(sample, from);
    EXPECT_FALSE(found.empty()) << "the sample lacks what is to be damaged";
    std::ranges::copy(to, found.begin());
    return sample;
}

Bytes bytesOfText(std::string_view text) {
    return {text.begin(), text.end()};
}

const Spec developer{.leafCommonName = "Developer ID Application: Grüne Wiese GmbH (ABCDE12345)",
                     .leafOrganisationalUnit = "ABCDE12345",
                     .leafOrganisation = "Grüne Wiese GmbH"};

} // namespace

TEST(CmsSigner, FindsTheCertificateThatTheFullDecoderFinds) {
    const struct {
        const char* what;
        Spec spec;
        const char* summary;
    } cases[] = {
        {"common name", developer, "Developer ID Application: Grüne Wiese GmbH (ABCDE12345)"},
        {"unit", {.leafOrganisationalUnit = "Unit", .leafOrganisation = "Firm"}, "Unit"},
        {"organisation", {.leafOrganisation = "Firm", .leafEmail = "a@example.com"}, "Firm"},
        {"e-mail", {.leafEmail = "a@example.com"}, "a@example.com"},
    };
    for (const auto& c : cases) {
        for (unsigned variant = 0; variant < 8; ++variant) {
            SCOPED_TRACE(std::string(c.what) + ", variant " + std::to_string(variant));
            Spec spec = c.spec;
            spec.signerByKeyIdentifier = (variant & 1) != 0;
            spec.withTimeStamp = (variant & 2) != 0;
            spec.indefiniteLengths = (variant & 4) != 0;
            const Bytes cms = cmsFile(spec);
            EXPECT_NE(subjectByFullDecoder(cms).find("/UID=UID1234567"), std::string::npos);
            EXPECT_EQ(signerSubjectSummary(ByteView(cms)), c.summary);
            if (spec.indefiniteLengths)
                continue;
            const Bytes open = withOpenLengths(cms.data(), cms.data() + cms.size());
            EXPECT_EQ(subjectByFullDecoder(open), subjectByFullDecoder(cms));
            EXPECT_EQ(signerSubjectSummary(ByteView(open)), c.summary);
        }
    }
}

TEST(CmsSigner, NamesNobodyWhereTheSignersCertificateIsNotFound) {
    Spec plain = developer, byKey = developer;
    plain.withTimeStamp = byKey.withTimeStamp = false;
    byKey.signerByKeyIdentifier = true;
    const Bytes sample = cmsFile(plain), sampleByKey = cmsFile(byKey);
    ASSERT_TRUE(signerSubjectSummary(ByteView(sample)));
    Bytes nested;
    for (int i = 0; i < 500'000; ++i)
        nested.insert(nested.end(), {0x30, 0x80});
    const struct {
        const char* what;
        Bytes cms;
    } cases[] = {
        {"another type of content", damaged(sample, {1, 7, 2}, {1, 7, 3})},
        {"a serial number that no certificate has",
         damaged(sample, {0x5E, 0xED, 0x12, 0x34}, {0x5E, 0xED, 0x12, 0x35})},
        {"an issuer that no certificate has",
         damaged(sample, bytesOfText("Developer Authority"), bytesOfText("Deserted Authority "))},
        {"a key that no certificate has", damaged(sampleByKey, {0x80, 2, 3, 3}, {0x80, 2, 3, 4})},
        {"an empty key identifier", damaged(sampleByKey, {0x80, 2, 3, 3}, {0x80, 0, 5, 0})},
        {"elements nested without end", nested},
        {"nothing", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(signerSubjectSummary(ByteView(c.cms)), std::nullopt);
        EXPECT_EQ(ERR_peek_error(), 0U) << "an error is left to the next caller";
    }
}

TEST(CmsSigner, EveryStringTypeBecomesUtf8) {
    const Bytes sample = cmsFile({.leafCommonName = "Grüne", .leafOrganisation = "Firm"});
    const struct {
        const char* what;
        Bytes string;
        std::optional<std::string> summary;
    } cases[] = {
        {"Latin T61String", {0x14, 6, 'G', 'r', 0xFC, 'n', 'e', '!'}, "Grüne!"},
        {"BMPString", {0x1E, 6, 0, 'G', 0x20, 0xAC, 0, 'n'}, "G€n"},
        {"BMPString with half a character", {0x1E, 6, 0, 'G', 0xD8, 0, 0, 'n'}, std::nullopt},
        {"damaged UTF8String", {0x0C, 6, 'G', 'r', 0xFF, 'x', 'n', 'e'}, std::nullopt},
        {"no text at all", {0x03, 6, 0, 'G', 'r', 'n', 'n', 'e'}, "Firm"},
    };
    for (const auto& c : cases) {
        const Bytes cms = damaged(sample, {0x0C, 6, 'G', 'r', 0xC3, 0xBC, 'n', 'e'}, c.string);
        EXPECT_EQ(signerSubjectSummary(ByteView(cms)), c.summary) << c.what;
    }
}

TEST(CmsSigner, ACmsThatIsCutOffAnywhereGivesNothing) {
    for (const bool indefinite : {false, true}) {
        Spec spec = developer;
        spec.indefiniteLengths = indefinite;
        const Bytes cms = cmsFile(spec);
        for (std::size_t size = 0; size < cms.size(); ++size) {
            // A buffer of exactly this size, so that a sanitizer sees a read behind it.
            const Bytes cut(cms.data(), cms.data() + size);
            ASSERT_EQ(signerSubjectSummary(ByteView(cut)), std::nullopt) << size;
        }
    }
}

} // namespace veridane::test
