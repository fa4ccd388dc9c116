#include "sample/SampleObjects.h"

#include "platform/Path.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace veridane::sample {

using namespace test;

namespace {

std::vector<Slice> slicesOf(Code code) {
    switch (code) {
    case Code::script:
        return {};
    case Code::appleSilicon:
        return {Slice::arm64};
    case Code::appleSystem:
        return {Slice::x86_64, Slice::arm64e};
    case Code::universal:
        return {Slice::x86_64, Slice::arm64};
    case Code::intel:
        return {Slice::x86_64};
    case Code::intelWith32Bit:
        return {Slice::i386, Slice::x86_64};
    case Code::intel32Bit:
        return {Slice::i386};
    case Code::powerPC:
        return {Slice::ppc, Slice::i386};
    case Code::oldPowerPC:
        return {Slice::ppc};
    case Code::arm32Bit:
        return {Slice::arm};
    }
    return {};
}

std::optional<SignatureSpec> signatureOf(const Maker& maker, Signing signing,
                                         std::string_view identifier) {
    SignatureSpec spec;
    spec.identifier = identifier;
    const auto certified = [&](std::string_view prefix) {
        spec.teamIdentifier = maker.team;
        spec.leafOrganisationalUnit = maker.team;
        spec.leafOrganisation = maker.name;
        spec.leafCommonName = std::string(prefix) + ": " + maker.name + " (" + maker.team + ")";
        return spec;
    };
    switch (signing) {
    case Signing::notSigned:
        return std::nullopt;
    case Signing::adHoc:
        return spec;
    case Signing::developerID:
        return certified("Developer ID Application");
    case Signing::store:
        return certified("Apple Distribution");
    case Signing::oldStore:
        return certified("3rd Party Mac Developer Application");
    case Signing::development:
        return certified("Apple Development");
    case Signing::apple:
        spec.leafCommonName = "Apple Mac OS Application Signing";
        return spec;
    }
    return std::nullopt;
}

/// The main "executable" of an application that only starts something else.
constexpr std::string_view launcher = "#!/bin/sh\nexec /usr/bin/open \"$(dirname \"$0\")/..\"\n";

constexpr std::int64_t bytesOf(int kilobytes) {
    return std::int64_t{1024} * kilobytes;
}

void writeBundle(VolumeBuilder& volume, const Bundle& bundle) {
    const Path path(bundle.path);
    const std::string stem(path.stem());
    const bool isApplication = path.extension() == "app";
    BundleBuilder builder(volume, bundle.path);
    // The store's builds have the binary form, which also takes names that XML cannot hold.
    const bool isBinary = bundle.extras.hasReceipt || *bundle.extras.displayName;
    builder.infoForm(isBinary ? PlistForm::binary : PlistForm::xml)
        .info("CFBundlePackageType", isApplication ? "APPL" : "BNDL")
        .info("CFBundleName", stem)
        .identifier(bundle.identifier)
        .version(bundle.version, bundle.build)
        .modified(secondsOf(bundle.modified));
    if (*bundle.extras.displayName)
        builder.info("CFBundleDisplayName", bundle.extras.displayName);
    if (*bundle.category)
        builder.category(bundle.category);
    if (*bundle.extras.feed)
        builder.sparkleFeed(bundle.extras.feed);
    if (bundle.extras.hasReceipt)
        builder.receipt();
    if (bundle.extras.hasSparkleFramework)
        builder.framework("Sparkle", machO(slicesOf(Code::universal)), bytesOf(96));

    if (bundle.code == Code::script)
        builder.info("CFBundleExecutable", stem).file("Contents/MacOS/" + stem, launcher);
    else
        builder.executable(stem, slicesOf(bundle.code), bytesOf(bundle.kilobytes));
    if (const auto signature = signatureOf(bundle.maker, bundle.signing, bundle.identifier))
        builder.signedBy(*signature);
    builder.file("Contents/Resources/Assets.car", {}, bytesOf(bundle.kilobytes) / 2)
        .file("Contents/Resources/de.lproj/InfoPlist.strings",
              "CFBundleName = \"" + stem + "\";\n");
}

/// Gives a bundle the shape of an iPhone application, with everything at its top level.
void flatten(const std::filesystem::path& bundle) {
    std::error_code error;
    for (const char* name : {"Contents/MacOS", "Contents/Resources", "Contents"}) {
        const std::filesystem::path folder = bundle / name;
        for (const auto& entry : std::filesystem::directory_iterator(folder, error))
            std::filesystem::rename(entry.path(), bundle / entry.path().filename(), error);
        std::filesystem::remove(folder, error);
    }
}

} // namespace

std::int64_t secondsOf(Day day) {
    const std::chrono::sys_time<std::chrono::seconds> noon =
        std::chrono::sys_days(std::chrono::year(day.year) / std::chrono::month(day.month) /
                              std::chrono::day(day.day)) +
        std::chrono::hours(12);
    return noon.time_since_epoch().count();
}

void write(VolumeBuilder& volume, const Bundle& bundle) {
    writeBundle(volume, bundle);
    if (!bundle.extras.isFlat)
        return;
    flatten(volume.hostPath(bundle.path));
    volume.modified(bundle.path, secondsOf(bundle.modified));
}

void write(VolumeBuilder& volume, const Component& component) {
    volume.file(component.path, machO(slicesOf(component.code)), bytesOf(component.kilobytes));
}

void write(VolumeBuilder& volume, const Tool& tool) {
    const auto signature = signatureOf(tool.maker, tool.signing, Path(tool.path).name());
    const Bytes signatureBytes = signature ? embeddedSignature(*signature) : Bytes();
    volume.file(tool.path, machO(slicesOf(tool.code), signatureBytes), bytesOf(tool.kilobytes))
        .modified(tool.path, secondsOf(tool.modified));
}

void write(VolumeBuilder& volume, const Service& service) {
    PlistDictionary entries;
    if (service.label)
        entries.push_back({"Label", service.label});
    if (service.hasArguments)
        entries.push_back({"ProgramArguments", PlistList{service.program, "--hintergrund"}});
    else
        entries.push_back({"Program", service.program});
    entries.push_back({"RunAtLoad", true});
    volume.plist(service.path, entries, service.form);
}

} // namespace veridane::sample
