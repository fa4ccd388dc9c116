#include "sample/SampleVolume.h"

#include "platform/Path.h"
#include "sample/SampleTables.h"

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

/// Noon in Greenwich, so that the day is the same in most of the world.
std::int64_t secondsOf(Day day) {
    const std::chrono::sys_time<std::chrono::seconds> noon =
        std::chrono::sys_days(std::chrono::year(day.year) / std::chrono::month(day.month) /
                              std::chrono::day(day.day)) +
        std::chrono::hours(12);
    return noon.time_since_epoch().count();
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

void writeTools(VolumeBuilder& volume) {
    for (const Tool& tool : tools) {
        const auto signature = signatureOf(tool.maker, tool.signing, Path(tool.path).name());
        const Bytes signatureBytes = signature ? embeddedSignature(*signature) : Bytes();
        volume.file(tool.path, machO(slicesOf(tool.code), signatureBytes), bytesOf(tool.kilobytes))
            .modified(tool.path, secondsOf(tool.modified));
    }
}

void writeLinks(VolumeBuilder& volume) {
    for (const Link& link : links)
        volume.link(link.path, link.target).modified(link.path, secondsOf({2023, 2, 5}));
}

void writeServices(VolumeBuilder& volume) {
    for (const Service& service : services) {
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
}

/// What goes wrong on real disks: downloads that broke off, hand-made bundles, leftovers.
void writeBrokenObjects(VolumeBuilder& volume) {
    const Bytes universal = universalMachO({Slice::x86_64, Slice::arm64});
    const std::int64_t date = secondsOf({2019, 11, 2});

    // The table of slices is cut off after the first, so the native one is never seen.
    volume.bundle("/Applications/Bruchstückchen.app")
        .info("CFBundleName", "Bruchstückchen")
        .identifier("de.hagebutz.bruchstueckchen")
        .version("0.9", "12")
        .info("CFBundleExecutable", "Bruchstückchen")
        .file("Contents/MacOS/Bruchstückchen",
              Bytes(universal.begin(), universal.begin() + 8 + 20 + 5))
        .modified(date);
    volume.bundle("/Applications/Grünspanpflege.app")
        .file("Contents/Info.plist", "<?xml version=\"1.0\"?><plist><dict><key>CFBundleNa")
        .file("Contents/MacOS/Grünspanpflege", thinMachO(Slice::x86_64), bytesOf(64))
        .modified(date);
    volume.bundle("/Applications/Leerstandsmelder.app")
        .file("Contents/PkgInfo", "APPL????")
        .modified(date);
    // Put together by hand: no Info.plist, a script in front of two old binaries.
    volume.bundle("/Applications/Mu\u0308nzfachsammlung.app")
        .file("Contents/MacOS/Anfang.sh", "#!/bin/sh\n\"$(dirname \"$0\")/muenzen\"\n")
        .file("Contents/MacOS/muenzen", thinMachO(Slice::i386), bytesOf(40))
        .file("Contents/MacOS/sortieren", thinMachO(Slice::x86_64), bytesOf(40))
        .modified(date);
    volume.file("/Applications/Nur eine Datei.app", "no bundle at all\n")
        .modified("/Applications/Nur eine Datei.app", date);

    volume.file("/usr/local/bin/aufraeumen", "#!/bin/sh\necho aufgeräumt\n")
        .file("/usr/local/bin/abgebrochen", Bytes(universal.begin(), universal.begin() + 6))
        .fifo("/usr/local/bin/meldungen")
        .folder("/usr/local/bin/alte-skripte")
        .file("/Library/LaunchAgents/de.hagebutz.kaputt.plist", "bplist00\x01\x02\x03")
        .file("/Library/LaunchDaemons/notizen.txt", "kein Dienst\n");
}

} // namespace

void writeSampleVolume(VolumeBuilder& volume) {
    volume.plist("/System/Library/CoreServices/SystemVersion.plist",
                 PlistDictionary{{"ProductBuildVersion", "25C100"},
                                 {"ProductName", "macOS"},
                                 {"ProductVersion", "26.2"}});
    for (const char* path :
         {"/Applications", "/Users", "/Users/Shared", "/Users/anna/Applications"})
        volume.file(std::string(path) + "/.localized", "");
    for (const char* home : {"/Users/anna", "/Users/jonas"}) {
        for (const char* folder : {"/Desktop", "/Documents", "/Library/LaunchAgents"})
            volume.folder(std::string(home) + folder);
    }
    for (const Bundle& bundle : bundles) {
        writeBundle(volume, bundle);
        if (!bundle.extras.isFlat)
            continue;
        flatten(volume.hostPath(bundle.path));
        volume.modified(bundle.path, secondsOf(bundle.modified));
    }
    for (const Component& component : components)
        volume.file(component.path, machO(slicesOf(component.code)), bytesOf(component.kilobytes));
    writeTools(volume);
    writeLinks(volume);
    writeServices(volume);
    writeBrokenObjects(volume);
}

} // namespace veridane::sample
