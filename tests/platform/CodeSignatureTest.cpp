#include "platform/CodeSignature.h"

#include "platform/ByteSource.h"
#include "platform/EmbeddedSignature.h"
#include "platform/SignatureBlobs.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace veridane::test {
namespace {

using Spec = SignatureSpec;
using enum Slice;

std::optional<CodeSignature> read(const Bytes& file) {
    const auto signature = embeddedSignature(ByteSource(ByteView(file)));
    return signature ? parseEmbeddedSignature(*signature) : std::nullopt;
}

std::string describe(const std::optional<CodeSignature>& signature) {
    if (!signature)
        return "nothing";
    return std::string(signature->hasIdentifier ? "identifier" : "no identifier") + ", " +
           signature->teamIdentifier.value_or("no team") + ", " +
           signature->leafSubjectSummary.value_or("no certificate");
}

Bytes with(Bytes file, std::size_t offset, const Bytes& change) {
    std::ranges::copy(change, file.begin() + static_cast<std::ptrdiff_t>(offset));
    return file;
}

const Spec developer{.teamIdentifier = "ABCDE12345", .leafCommonName = "Firm"};
const std::string complete = "identifier, ABCDE12345, Firm", noTeam = "identifier, no team, Firm",
                  adHoc = "identifier, no team, no certificate";

} // namespace

TEST(CodeSignature, ReadsEveryShapeOfAnEmbeddedSignature) {
    const struct {
        const char* what;
        Spec spec;
        std::string found;
    } cases[] = {
        {"by a certificate", developer, complete},
        {"padded", {.leafCommonName = "Firm", .padding = 4000}, noTeam},
        {"unit alone", {.leafCommonName = "Firm", .leafOrganisationalUnit = "ABCDE12345"}, noTeam},
        {"ad hoc, empty CMS", {.adHocShape = Spec::AdHocShape::emptyCmsWrapper}, adHoc},
        {"ad hoc, no CMS", {.adHocShape = Spec::AdHocShape::noCmsBlob}, adHoc},
        {"ad hoc, no superblob", {.adHocShape = Spec::AdHocShape::codeDirectoryOnly}, adHoc},
    };
    for (const auto& c : cases) {
        for (const Slice slice : {arm64, i386, ppc, ppc64})
            EXPECT_EQ(describe(read(thinMachO(slice, embeddedSignature(c.spec)))), c.found)
                << c.what;
    }
}

TEST(CodeSignature, ReadsTheSliceThatAnAppleSiliconMacWouldRun) {
    const auto part = [](Slice slice, const char* name) {
        return UniversalPart{slice, thinMachO(slice, embeddedSignature({.leafCommonName = name}))};
    };
    const UniversalPart intel = part(x86_64, "Intel"), old = part(i386, "old"),
                        arm = part(arm64, "ARM"), armE = part(arm64e, "ARM e");
    const struct {
        std::vector<UniversalPart> parts;
        std::optional<std::string> summary;
    } cases[] = {
        {{intel, arm}, "ARM"},
        {{armE, arm, intel}, "ARM e"},
        {{arm, intel, armE}, "ARM e"},
        {{old, intel}, "old"},
        {{intel, {arm64, thinMachO(arm64)}}, {}},
        {{{x86_64, {'!', '<', 'a', 'r', 'c', 'h', '>'}}}, {}},
        {{{x86_64, universalMachO({intel})}}, {}},
    };
    for (const auto& c : cases) {
        for (const bool wide : {false, true}) {
            const auto found = read(universalMachO(c.parts, wide));
            EXPECT_EQ(found ? found->leafSubjectSummary : std::nullopt, c.summary);
        }
    }
}

TEST(CodeSignature, ADamagedFileGivesWhatIsStillSound) {
    const Bytes file = thinMachO(arm64, embeddedSignature(developer));
    const Bytes universal = universalMachO({{x86_64, file}});
    // Load commands: a UUID and then, last, the place of the signature. There a superblob with an
    // index of three entries begins, and behind it the code directory.
    constexpr std::size_t uuid = 176, place = 200, super = 224, directory = super + 36;
    ASSERT_TRUE(file.at(place) == 0x1D && file.at(super) == 0xFA && file.at(directory) == 0xFA);
    const struct {
        const char* what;
        Bytes bytes;
        std::string found;
    } cases[] = {
        {"a universal slice that is the file itself", with(universal, 16, {0, 0, 0, 0}), "nothing"},
        {"a universal slice behind the end", with(universal, 16, {0x7F}), "nothing"},
        {"more slices than files have", with(universal, 4, {0, 0, 0, 64}), "nothing"},
        {"endless load commands of size zero",
         with(with(file, uuid + 4, {0}), 16, {0xFF, 0xFF, 0xFF, 0xFF}), "nothing"},
        {"a load command behind the end", with(file, uuid + 4, {0, 0, 0, 1}), "nothing"},
        {"load commands without end", with(file, 20, {0xFF, 0xFF, 0xFF, 0xFF}), "nothing"},
        {"fewer load commands", with(file, 16, {3}), "nothing"},
        {"a signature behind the end", with(file, place + 8, {0, 0, 0, 1}), "nothing"},
        {"a file cut off", Bytes(file.begin(), file.end() - 1), "nothing"},
        {"a superblob larger than its data", with(file, super + 4, {1}), "nothing"},
        {"no blobs", with(file, super + 8, {0, 0, 0, 0}), "nothing"},
        {"an alternate code directory alone", with(file, super + 12, {0, 0, 0x10, 0}), complete},
        {"a code directory of another kind", with(file, directory, {0}), "nothing"},
        {"a code directory that is too long", with(file, directory + 4, {1}), "nothing"},
        {"a code directory without identifier", with(file, directory + 20, {0, 0, 0, 0}),
         "no identifier, ABCDE12345, Firm"},
        {"a version without teams", with(file, directory + 8, {0, 2, 1, 0}), noTeam},
        {"a team behind the end", with(file, directory + 48, {1}), noTeam},
        {"a CMS behind the end", with(file, super + 32, {1}),
         "identifier, ABCDE12345, no certificate"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(describe(read(c.bytes)), c.found) << c.what;
}

TEST(CodeSignature, ALargeSignatureIsReadFromTheFileInParts) {
    Spec spec = developer;
    spec.padding = 1'200'000;
    const Bytes thin = thinMachO(arm64, embeddedSignature(spec));
    VolumeBuilder volume;
    volume.file("/thin", thin).file("/universal", universalMachO({{x86_64, thin}, {arm64, thin}}));
    volume.file("/cut", Bytes(thin.begin(), thin.begin() + 400)).fifo("/fifo");
    for (const char* path : {"/thin", "/universal"})
        EXPECT_EQ(describe(readFileSignature(volume.files(), Path(path))), complete) << path;
    for (const char* path : {"/cut", "/fifo", "/missing", "/"})
        EXPECT_EQ(readFileSignature(volume.files(), Path(path)), std::nullopt) << path;
}

TEST(CodeSignature, ABundleIsReadBesideItsSealOnlyWithoutCode) {
    Bytes wrapped;
    const Bytes cms = cmsFile(developer), seal = codeDirectoryFile(developer);
    appendBigEndian32(wrapped, 0xFADE0B01);
    appendBigEndian32(wrapped, static_cast<std::uint32_t>(8 + cms.size()));
    wrapped.insert(wrapped.end(), cms.begin(), cms.end());
    VolumeBuilder volume;
    volume.file("/A.app/Contents/_CodeSignature/CodeDirectory", seal)
        .file("/A.app/Contents/_CodeSignature/CodeSignature", cms)
        .file("/Flat.plugin/_CodeSignature/CodeDirectory", seal)
        .file("/Flat.plugin/_CodeSignature/CodeSignature", wrapped)
        .file("/AdHoc.app/Contents/_CodeSignature/CodeDirectory", seal)
        .file("/script", "#!/bin/sh\n")
        .file("/unsigned", thinMachO(x86_64))
        .file("/signed", thinMachO(x86_64, embeddedSignature({})));
    const struct {
        const char* bundle;
        std::optional<Path> executable;
        std::string found;
    } cases[] = {
        {"/A.app", {}, complete},
        {"/A.app", Path("/script"), complete},
        {"/A.app", Path("/missing"), complete},
        {"/A.app", Path("/unsigned"), "nothing"},
        {"/A.app", Path("/signed"), adHoc},
        {"/Flat.plugin", {}, complete},
        {"/AdHoc.app", {}, "identifier, ABCDE12345, no certificate"},
        {"/None.app", {}, "nothing"},
    };
    for (const auto& c : cases) {
        const auto found = readBundleSignature(volume.files(), Path(c.bundle), c.executable);
        EXPECT_EQ(describe(found), c.found)
            << c.bundle << " " << (c.executable ? c.executable->bytes() : "");
    }
}

} // namespace veridane::test
