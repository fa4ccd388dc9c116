#include "platform/ByteSource.h"
#include "platform/CmsSigner.h"
#include "platform/EmbeddedSignature.h"
#include "platform/SignatureBlobs.h"
#include "support/VolumeTest.h"

#include <openssl/cms.h>
#include <openssl/err.h>

#include <algorithm>

namespace veridane::test {
namespace {

using enum Slice;

std::optional<CodeSignature> read(const Bytes& file) {
    const auto signature = embeddedSignature(ByteSource(ByteView(file)));
    return signature ? parseEmbeddedSignature(*signature) : std::nullopt;
}

std::string describe(const std::optional<CodeSignature>& signature) {
    if (!signature)
        return "nothing";
    return (signature->hasIdentifier ? "identifier, " : "anonymous, ") +
           signature->teamIdentifier.value_or("-") + ", " +
           signature->leafSubjectSummary.value_or("-");
}

const SignatureSpec developer{.teamIdentifier = "TEAM", .leafCommonName = "Firm"};
const std::string complete = "identifier, TEAM, Firm", noTeam = "identifier, -, Firm",
                  noCertificate = "identifier, TEAM, -", adHoc = "identifier, -, -",
                  nothing = "nothing";

using SignedFiles = VolumeTest;

/// What OpenSSL's own decoder finds.
std::string summaryByFullDecoder(const Bytes& bytes) {
    const unsigned char* at = bytes.data();
    CMS_ContentInfo* cms = d2i_CMS_ContentInfo(nullptr, &at, static_cast<long>(bytes.size()));
    CMS_set1_signers_certs(cms, nullptr, 0);
    STACK_OF(X509)* signers = CMS_get0_signers(cms);
    char text[256] = "";
    for (const int kind :
         {NID_pkcs9_emailAddress, NID_organizationName, NID_organizationalUnitName, NID_commonName})
        X509_NAME_get_text_by_NID(X509_get_subject_name(sk_X509_value(signers, 0)), kind, text,
                                  sizeof text);
    sk_X509_free(signers);
    CMS_ContentInfo_free(cms);
    return text;
}

/// The sample with the last occurrence of some bytes replaced by as many others.
Bytes damaged(const Bytes& sample, const Bytes& from, const Bytes& to) {
    const auto found = std::find_end(sample.begin(), sample.end(), from.begin(), from.end());
    return with(sample, static_cast<std::size_t>(found - sample.begin()), to); // throws if lacking
}

} // namespace

TEST(CmsSigner, FindsTheCertificateThatTheFullDecoderFinds) {
    const std::pair<SignatureSpec, const char*> cases[] = {
        {{.leafCommonName = "Grüne Wiese", .leafOrganisationalUnit = "Unit"}, "Grüne Wiese"},
        {{.leafOrganisationalUnit = "Unit", .leafOrganisation = "Firm"}, "Unit"},
        {{.leafOrganisation = "Firm", .leafEmail = "a@example.com"}, "Firm"},
        {{.leafEmail = "a@example.com"}, "a@example.com"},
    };
    using enum SignatureSpec::Lengths;
    for (auto [spec, summary] : cases) {
        for (unsigned variant = 0; variant < 4; ++variant) {
            spec.signerByKeyIdentifier = (variant & 1) != 0;
            spec.withTimeStamp = (variant & 2) != 0;
            for (const auto lengths : {given, partlyOpen, open}) {
                spec.lengths = lengths;
                const Bytes cms = cmsFile(spec);
                EXPECT_EQ(summaryByFullDecoder(cms), summary) << variant;
                EXPECT_EQ(signerSubjectSummary(ByteView(cms)), summary) << variant;
            }
        }
    }
}

TEST(CmsSigner, NamesNobodyWhereTheSignersCertificateIsNotFound) {
    SignatureSpec plain = developer, byKey = developer;
    plain.withTimeStamp = byKey.withTimeStamp = false;
    byKey.signerByKeyIdentifier = true;
    const Bytes sample = cmsFile(plain), sampleByKey = cmsFile(byKey);
    Bytes nested;
    for (int i = 0; i < 500'000; ++i)
        append(nested, {0x30, 0x80});
    const std::pair<const char*, Bytes> cases[] = {
        {"another type of content", damaged(sample, {13, 1, 7, 2}, {13, 1, 7, 3})},
        {"another serial number", damaged(sample, {0xED, 0x12, 0x34}, {0xED, 0x12, 0x35})},
        {"another issuer", damaged(sample, {'p', 'e', 'r', ' '}, {'p', 'e', 'r', 'X'})},
        {"another key", damaged(sampleByKey, {0x80, 2, 3, 3}, {0x80, 2, 3, 4})},
        {"no key on either side", damaged(damaged(sampleByKey, {0x80, 2, 3, 3}, {0x80, 0, 5, 0}),
                                          {0x55, 0x1D, 0x0E}, {0x55, 0x1D, 0x7F})},
        {"elements nested without end", nested},
        {"nothing", {}},
    };
    for (const auto& [what, cms] : cases)
        EXPECT_EQ(signerSubjectSummary(ByteView(cms)), std::nullopt) << what;
    // Names are the same in any case.
    const Bytes loud = damaged(sample, {'p', 'e', 'r', ' ', 'A'}, {'P', 'E', 'R', ' ', 'A'});
    EXPECT_EQ(signerSubjectSummary(ByteView(loud)), developer.leafCommonName);
}

TEST(CmsSigner, EveryStringTypeBecomesUtf8) {
    const Bytes sample = cmsFile({.leafCommonName = "Grüne", .leafOrganisation = "Firm"});
    const std::pair<Bytes, std::optional<std::string>> cases[] = {
        {{0x14, 6, 'G', 'r', 0xFC, 'n', 'e', '!'}, "Grüne!"}, // T61String, in fact Latin
        {{0x1E, 6, 0, 'G', 0x20, 0xAC, 0, 'n'}, "G€n"},       // BMPString
        {{0x1E, 6, 0, 'G', 0xD8, 0, 0, 'n'}, {}},             // half a character
        {{0x0C, 6, 'G', 'r', 0xFF, 'x', 'n', 'e'}, {}},       // UTF8String, damaged
        {{0x03, 6, 0, 'G', 'r', 'n', 'n', 'e'}, "Firm"},      // no text at all
    };
    for (const auto& [string, summary] : cases) {
        const Bytes cms = damaged(sample, {0x0C, 6, 'G', 'r', 0xC3, 0xBC, 'n', 'e'}, string);
        EXPECT_EQ(signerSubjectSummary(ByteView(cms)), summary);
    }
}

TEST(CmsSigner, ACmsThatIsCutOffAnywhereGivesNothing) {
    using enum SignatureSpec::Lengths;
    for (const auto lengths : {given, partlyOpen, open}) {
        const Bytes cms = cmsFile({.leafCommonName = "Firm", .lengths = lengths});
        for (std::size_t size = 0; size < cms.size(); ++size) {
            // A buffer of exactly this size, so that a sanitizer sees a read behind it.
            const Bytes cut(cms.data(), cms.data() + size);
            ASSERT_EQ(signerSubjectSummary(ByteView(cut)), std::nullopt) << size;
        }
    }
    EXPECT_EQ(ERR_peek_error(), 0U) << "an error is left to the next caller";
}

TEST(CodeSignature, ReadsEveryShapeOfAnEmbeddedSignature) {
    Bytes padded = embeddedSignature(developer);
    padded.resize(padded.size() + 4000);
    const std::pair<Bytes, std::string> cases[] = {
        {padded, complete},
        {embeddedSignature({{}, {}, "Firm", "TEAM"}), noTeam},
        {embeddedSignature({}), adHoc},
        {with(embeddedSignature({}), 28, {0, 0, 0, 5}), adHoc}, // no CMS
        {codeDirectoryFile({}), adHoc},
    };
    for (const auto& [signature, found] : cases)
        for (const Slice slice : {arm64, i386, ppc, ppc64})
            EXPECT_EQ(describe(read(thinMachO(slice, signature))), found);
}

TEST(CodeSignature, ReadsTheSliceThatAnAppleSiliconMacWouldRun) {
    const auto part = [](Slice slice, const char* team) {
        return UniversalPart{slice, thinMachO(slice, embeddedSignature({.teamIdentifier = team}))};
    };
    const UniversalPart intel = part(x86_64, "Intel"), old = part(i386, "old"),
                        arm = part(arm64, "ARM"), armE = part(arm64e, "ARM e");
    const std::pair<std::vector<UniversalPart>, std::string> cases[] = {
        {{intel, arm}, "identifier, ARM, -"},
        {{armE, arm, intel}, "identifier, ARM e, -"},
        {{arm, intel, armE}, "identifier, ARM e, -"},
        {{old, intel}, "identifier, old, -"},
        {{intel, arm64}, nothing},
        {{{x86_64, {'!', '<', 'a', 'r', 'c', 'h', '>'}}}, nothing},
        {{{x86_64, universalMachO({intel})}}, nothing},
    };
    for (const auto& [parts, found] : cases)
        for (const bool wide : {false, true})
            EXPECT_EQ(describe(read(universalMachO(parts, wide))), found);
}

TEST(CodeSignature, ADamagedFileGivesWhatIsStillSound) {
    const Bytes file = thinMachO(arm64, embeddedSignature(developer));
    const Bytes universal = universalMachO({{x86_64, file}}), endless(4, 0xFF);
    // Load commands: a UUID and then, last, the place of the signature. There a superblob with an
    // index of three entries begins, and behind it the code directory.
    constexpr std::size_t uuid = 32, place = 56, super = 80, directory = super + 36;
    ASSERT_TRUE(file.at(place) == 0x1D && file.at(super) == 0xFA && file.at(directory) == 0xFA);
    const std::tuple<const char*, Bytes, std::string> cases[] = {
        {"a universal slice that is the file itself", with(universal, 16, {0, 0, 0, 0}), nothing},
        {"a universal slice behind the end", with(universal, 16, {0x7F}), nothing},
        {"more slices than files have", with(universal, 4, {0, 0, 0, 64}), nothing},
        {"endless empty load commands", with(with(file, uuid + 4, {0}), 16, endless), nothing},
        {"load commands without end", with(file, 20, endless), nothing},
        {"fewer load commands", with(file, 16, {1}), nothing},
        {"a signature behind the end", with(file, place + 8, {0, 0, 0, 1}), nothing},
        {"a file cut off", Bytes(file.begin(), file.end() - 1), nothing},
        {"a superblob larger than its data", with(file, super + 4, {1}), nothing},
        {"no blobs", with(file, super + 8, {0, 0, 0, 0}), nothing},
        {"an alternate code directory alone", with(file, super + 12, {0, 0, 0x10, 0}), complete},
        {"a code directory that is too long", with(file, directory + 4, {1}), nothing},
        {"no identifier", with(file, directory + 20, {0, 0, 0, 0}), "anonymous, TEAM, Firm"},
        {"a version without teams", with(file, directory + 8, {0, 2, 1, 0}), noTeam},
        {"a team behind the end", with(file, directory + 48, {1}), noTeam},
        {"a CMS behind the end", with(file, super + 32, {1}), noCertificate},
    };
    for (const auto& [what, bytes, found] : cases)
        EXPECT_EQ(describe(read(bytes)), found) << what;
}

TEST_F(SignedFiles, ALargeSignatureIsReadFromTheFileInParts) {
    Bytes signature = embeddedSignature(developer);
    signature.resize(1'200'000);
    const Bytes thin = thinMachO(arm64, signature);
    volume.file("/thin", thin).file("/universal", universalMachO({{x86_64, thin}, {arm64, thin}}));
    volume.file("/cut", Bytes(thin.begin(), thin.begin() + 200)).fifo("/fifo");
    for (const char* path : {"/thin", "/universal"})
        EXPECT_EQ(describe(readFileSignature(volume.files(), Path(path))), complete) << path;
    for (const char* path : {"/cut", "/fifo", "/missing", "/"})
        EXPECT_EQ(describe(readFileSignature(volume.files(), Path(path))), nothing) << path;
}

TEST_F(SignedFiles, ABundleIsReadBesideItsSealOnlyWithoutCode) {
    const Bytes cms = cmsFile(developer), seal = codeDirectoryFile(developer);
    const std::string folder = "/_CodeSignature/";
    volume.file("/A.app/Contents" + folder + "CodeDirectory", seal)
        .file("/A.app/Contents" + folder + "CodeSignature", cms)
        .file("/Flat.plugin" + folder + "CodeDirectory", seal)
        .file("/Flat.plugin" + folder + "CodeSignature", signatureBlob(0xFADE0B01, cms))
        .file("/AdHoc.app/Contents" + folder + "CodeDirectory", seal);
    volume.file("/script", "#!/bin/sh\n").file("/unsigned", thinMachO(x86_64));
    volume.file("/signed", thinMachO(x86_64, embeddedSignature({})));
    const std::tuple<const char*, std::optional<Path>, std::string> cases[] = {
        {"/A.app", {}, complete},
        {"/A.app", Path("/script"), complete},
        {"/A.app", Path("/unsigned"), nothing},
        {"/A.app", Path("/signed"), adHoc},
        {"/Flat.plugin", {}, complete},
        {"/AdHoc.app", {}, noCertificate},
        {"/None.app", {}, nothing},
    };
    for (const auto& [bundle, executable, found] : cases)
        EXPECT_EQ(describe(readBundleSignature(volume.files(), Path(bundle), executable)), found);
}

} // namespace veridane::test
