#include "platform/CmsSigner.h"

#include "support/SignatureBuilder.h"

#include <gtest/gtest.h>
#include <openssl/cms.h>
#include <openssl/err.h>
#include <openssl/x509.h>

#include <algorithm>
#include <array>
#include <string>

namespace veridane::test {
namespace {

using Spec = SignatureSpec;

/// What OpenSSL's own decoder finds, if the signer's certificate is the last one, as in real
/// chains.
std::string summaryByFullDecoder(const Bytes& bytes) {
    const unsigned char* at = bytes.data();
    CMS_ContentInfo* cms = d2i_CMS_ContentInfo(nullptr, &at, static_cast<long>(bytes.size()));
    STACK_OF(X509)* certificates = CMS_get1_certs(cms);
    X509* last = sk_X509_value(certificates, sk_X509_num(certificates) - 1);
    std::array<char, 256> text{};
    if (CMS_SignerInfo_cert_cmp(sk_CMS_SignerInfo_value(CMS_get0_SignerInfos(cms), 0), last) == 0) {
        for (const int kind : {NID_pkcs9_emailAddress, NID_organizationName,
                               NID_organizationalUnitName, NID_commonName})
            X509_NAME_get_text_by_NID(X509_get_subject_name(last), kind, text.data(), text.size());
    }
    sk_X509_pop_free(certificates, X509_free);
    CMS_ContentInfo_free(cms);
    return text.data();
}

/// The same elements with every length left open, and the signer's key identifier in pieces.
Bytes withOpenLengths(const unsigned char* at, const unsigned char* end) {
    Bytes result;
    const auto append = [&result](const Bytes& bytes) {
        result.insert(result.end(), bytes.begin(), bytes.end());
    };
    while (at < end) {
        const std::uint8_t first = *at;
        long length = 0;
        int tag = 0, tagClass = 0;
        const int form = ASN1_get_object(&at, &length, &tag, &tagClass, end - at);
        const Bytes content(at, at + length);
        at += length;
        if (first == 0x80 && length == 2) {
            append({0xA0, 0x80, 0x04, 1, content[0], 0x24, 0x80, 0x04, 1, content[1], 0, 0, 0, 0});
            continue;
        }
        const bool isConstructed = (form & V_ASN1_CONSTRUCTED) != 0;
        append({first, static_cast<std::uint8_t>(isConstructed ? 0x80 : 0x82)});
        append(isConstructed ? withOpenLengths(at - length, at)
                             : Bytes{static_cast<std::uint8_t>(length >> 8),
                                     static_cast<std::uint8_t>(length)});
        append(isConstructed ? Bytes{0, 0} : content);
    }
    return result;
}

/// The sample with the last occurrence of some bytes replaced by as many others.
Bytes damaged(Bytes sample, const Bytes& from, const Bytes& to) {
    const auto found = std::find_end(sample.begin(), sample.end(), from.begin(), from.end());
    EXPECT_NE(found, sample.end()) << "the sample lacks what is to be damaged";
    std::ranges::copy(to, found);
    return sample;
}

const Spec developer{.leafCommonName = "Developer ID Application: Grüne Wiese GmbH (ABCDE12345)",
                     .leafOrganisationalUnit = "ABCDE12345",
                     .leafOrganisation = "Grüne Wiese GmbH"};

} // namespace

TEST(CmsSigner, FindsTheCertificateThatTheFullDecoderFinds) {
    const struct {
        Spec spec;
        const char* summary;
    } cases[] = {
        {developer, "Developer ID Application: Grüne Wiese GmbH (ABCDE12345)"},
        {{.leafOrganisationalUnit = "Unit", .leafOrganisation = "Firm"}, "Unit"},
        {{.leafOrganisation = "Firm", .leafEmail = "a@example.com"}, "Firm"},
        {{.leafEmail = "a@example.com"}, "a@example.com"},
    };
    for (const auto& c : cases) {
        for (unsigned variant = 0; variant < 8; ++variant) {
            SCOPED_TRACE(std::string(c.summary) + ", variant " + std::to_string(variant));
            Spec spec = c.spec;
            spec.signerByKeyIdentifier = (variant & 1) != 0;
            spec.withTimeStamp = (variant & 2) != 0;
            spec.indefiniteLengths = (variant & 4) != 0;
            const Bytes cms = cmsFile(spec);
            EXPECT_EQ(summaryByFullDecoder(cms), c.summary);
            EXPECT_EQ(signerSubjectSummary(ByteView(cms)), c.summary);
            if (spec.indefiniteLengths)
                continue;
            const Bytes open = withOpenLengths(cms.data(), cms.data() + cms.size());
            EXPECT_EQ(summaryByFullDecoder(open), c.summary);
            EXPECT_EQ(signerSubjectSummary(ByteView(open)), c.summary);
        }
    }
}

TEST(CmsSigner, NamesNobodyWhereTheSignersCertificateIsNotFound) {
    Spec plain = developer, byKey = developer;
    plain.withTimeStamp = byKey.withTimeStamp = false;
    byKey.signerByKeyIdentifier = true;
    const Bytes sample = cmsFile(plain), sampleByKey = cmsFile(byKey);
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
         damaged(sample, {'p', 'e', 'r', ' ', 'A'}, {'p', 'e', 'r', 'X', 'A'})},
        {"a key that no certificate has", damaged(sampleByKey, {0x80, 2, 3, 3}, {0x80, 2, 3, 4})},
        {"no key on either side", damaged(damaged(sampleByKey, {0x80, 2, 3, 3}, {0x80, 0, 5, 0}),
                                          {0x55, 0x1D, 0x0E}, {0x55, 0x1D, 0x7F})},
        {"elements nested without end", nested},
        {"nothing", {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(signerSubjectSummary(ByteView(c.cms)), std::nullopt) << c.what;
    // Names are the same in any case.
    const Bytes loud = damaged(sample, {'p', 'e', 'r', ' ', 'A'}, {'P', 'E', 'R', ' ', 'A'});
    EXPECT_EQ(signerSubjectSummary(ByteView(loud)), developer.leafCommonName);
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
        const Bytes cms = cmsFile({.leafCommonName = "Firm", .indefiniteLengths = indefinite});
        for (std::size_t size = 0; size < cms.size(); ++size) {
            // A buffer of exactly this size, so that a sanitizer sees a read behind it.
            const Bytes cut(cms.data(), cms.data() + size);
            ASSERT_EQ(signerSubjectSummary(ByteView(cut)), std::nullopt) << size;
        }
    }
    EXPECT_EQ(ERR_peek_error(), 0U) << "an error is left to the next caller";
}

} // namespace veridane::test
