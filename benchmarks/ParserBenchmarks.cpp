#include "platform/CmsSigner.h"
#include "platform/Locale.h"
#include "platform/PropertyList.h"
#include "scan/MachOInspector.h"
#include "support/MachOBuilder.h"
#include "support/PlistBuilder.h"
#include "support/SignatureBuilder.h"

#include <benchmark/benchmark.h>
#include <openssl/cms.h>
#include <openssl/x509.h>

#include <memory>
#include <string>

namespace veridane {
namespace {

using namespace test;

void countBytes(benchmark::State& state, const Bytes& bytes) {
    state.counters["bytes"] = static_cast<double>(bytes.size());
}

void machOHeader(benchmark::State& state, const Bytes& file) {
    const ByteView bytes(file);
    const ByteView header = bytes.slice(0, MachOInspector::maxHeaderSize).value_or(bytes);
    for (auto _ : state)
        benchmark::DoNotOptimize(MachOInspector::inspect(header));
    countBytes(state, file);
}
BENCHMARK_CAPTURE(machOHeader, thin, thinMachO(Slice::arm64));
BENCHMARK_CAPTURE(machOHeader, universal, universalMachO({Slice::x86_64, Slice::arm64}));
// What most files are: a look at four bytes.
BENCHMARK_CAPTURE(machOHeader, other, Bytes(200, '#'));

Bytes developerCms() {
    SignatureSpec spec;
    spec.leafCommonName = "Developer ID Application: Example Industries (TEAM123456)";
    spec.leafOrganisationalUnit = "TEAM123456";
    return cmsFile(spec);
}

void cmsSigner(benchmark::State& state) {
    const Bytes cms = developerCms();
    if (!signerSubjectSummary(ByteView(cms)))
        state.SkipWithError("no signer in the sample");
    for (auto _ : state)
        benchmark::DoNotOptimize(signerSubjectSummary(ByteView(cms)));
    countBytes(state, cms);
}
BENCHMARK(cmsSigner);

std::size_t commonNameLength(X509* certificate) {
    char text[256];
    const int length = X509_NAME_get_text_by_NID(X509_get_subject_name(certificate), NID_commonName,
                                                 text, sizeof text);
    return length < 0 ? 0 : static_cast<std::size_t>(length);
}

/// The same question to the library's own decoder.
std::size_t signerByFullDecoder(const Bytes& bytes) {
    const unsigned char* at = bytes.data();
    const std::unique_ptr<CMS_ContentInfo, void (*)(CMS_ContentInfo*)> cms(
        d2i_CMS_ContentInfo(nullptr, &at, static_cast<long>(bytes.size())), CMS_ContentInfo_free);
    CMS_SignerInfo* signer =
        cms ? sk_CMS_SignerInfo_value(CMS_get0_SignerInfos(cms.get()), 0) : nullptr;
    STACK_OF(X509)* certificates = cms ? CMS_get1_certs(cms.get()) : nullptr;
    std::size_t length = 0;
    for (int i = 0; signer && i < sk_X509_num(certificates); ++i) {
        X509* certificate = sk_X509_value(certificates, i);
        if (CMS_SignerInfo_cert_cmp(signer, certificate) == 0)
            length = commonNameLength(certificate);
    }
    sk_X509_pop_free(certificates, X509_free);
    return length;
}

void cmsSignerByFullDecoder(benchmark::State& state) {
    const Bytes cms = developerCms();
    if (signerByFullDecoder(cms) != signerSubjectSummary(ByteView(cms)).value_or("").size())
        state.SkipWithError("the decoders do not agree");
    for (auto _ : state)
        benchmark::DoNotOptimize(signerByFullDecoder(cms));
    countBytes(state, cms);
}
BENCHMARK(cmsSignerByFullDecoder);

Bytes infoPlist(PlistForm form) {
    PlistDictionary entries;
    for (int i = 0; i < 40; ++i)
        entries.push_back({"CFBundleKey" + std::to_string(i), "value " + std::to_string(i)});
    PlistList types;
    for (int i = 0; i < 12; ++i)
        types.push_back(PlistDictionary{{"CFBundleTypeName", "Document " + std::to_string(i)},
                                        {"CFBundleTypeExtensions", PlistList{"doc", "txt"}}});
    entries.push_back({"CFBundleDocumentTypes", types});
    entries.push_back({"CFBundleIdentifier", "com.example.application"});
    return plistFile(entries, form);
}

void propertyList(benchmark::State& state, PlistForm form) {
    const Bytes file = infoPlist(form);
    for (auto _ : state) {
        const auto plist = PropertyList::parse(ByteView(file));
        if (!plist) {
            state.SkipWithError("the sample is no property list");
            break;
        }
        benchmark::DoNotOptimize(plist->text("CFBundleIdentifier"));
    }
    countBytes(state, file);
}
BENCHMARK_CAPTURE(propertyList, xml, PlistForm::xml);
BENCHMARK_CAPTURE(propertyList, binary, PlistForm::binary);

void collationKey(benchmark::State& state) {
    const Collation collation("de_DE");
    const std::string name = "Überblick für Äpfel 12";
    for (auto _ : state)
        benchmark::DoNotOptimize(collation.key(name));
}
BENCHMARK(collationKey);

void collationOpened(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Collation("de_DE"));
}
BENCHMARK(collationOpened);

} // namespace
} // namespace veridane
