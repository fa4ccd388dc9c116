#include "sample/SampleVolume.h"

#include "sample/SampleTables.h"

#include <cstdint>
#include <string>

namespace veridane::sample {

using namespace test;

namespace {

void writeLinks(VolumeBuilder& volume) {
    for (const Link& link : links)
        volume.link(link.path, link.target).modified(link.path, secondsOf({2023, 2, 5}));
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
        .file("Contents/MacOS/Grünspanpflege", thinMachO(Slice::x86_64), 64 * 1024)
        .modified(date);
    volume.bundle("/Applications/Leerstandsmelder.app")
        .file("Contents/PkgInfo", "APPL????")
        .modified(date);
    // Put together by hand: no Info.plist, a script in front of two old binaries.
    volume.bundle("/Applications/Mu\u0308nzfachsammlung.app")
        .file("Contents/MacOS/Anfang.sh", "#!/bin/sh\n\"$(dirname \"$0\")/muenzen\"\n")
        .file("Contents/MacOS/muenzen", thinMachO(Slice::i386), 40 * 1024)
        .file("Contents/MacOS/sortieren", thinMachO(Slice::x86_64), 40 * 1024)
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
    for (const Bundle& bundle : bundles)
        write(volume, bundle);
    for (const Component& component : components)
        write(volume, component);
    for (const Tool& tool : tools)
        write(volume, tool);
    writeLinks(volume);
    for (const Service& service : services)
        write(volume, service);
    writeBrokenObjects(volume);
}

} // namespace veridane::sample
