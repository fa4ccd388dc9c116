#include "hostile-volume/HostileVolume.h"

#include "hostile-volume/HostileWriter.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace veridane::test {
namespace {

using enum CompatibilityStatus;
using enum ItemKind;

constexpr int crowdSize = 10'000;
constexpr const char *nativeProgram = "/programs/native", *intelProgram = "/programs/intel";

} // namespace

std::vector<std::string> namesOfEveryByte() {
    std::vector<std::string> names;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '/')
            names.push_back(std::string("n") + static_cast<char>(byte)); // not hidden by a dot
    }
    return names;
}

HostileVolume writeHostileVolume(VolumeBuilder& mac, VolumeBuilder& outside, std::uint64_t seed) {
    return HostileWriter(mac, outside, seed).run();
}

std::string HostileVolume::toy(int number) {
    return "/Applications/Toys/" + std::to_string(number) + ".app";
}

bool HostileVolume::isUnpromised(std::string_view path) {
    return path.find("/Toys/") != path.npos || path.find("/damaged-file-") != path.npos;
}

HostileVolume HostileWriter::run() {
    m_mac.file(nativeProgram, m_native).file(intelProgram, m_intel);
    writeOutside();
    writeGoodObjects();
    writeTricksBesideGoodFiles();
    writeTricksAroundThePrograms();
    writeTricksInPlaceOfBundles();
    writeLists();
    writeLinks();
    writeDetours();
    writeNames();
    writeTools();
    writeServices();
    writeRoots();
    writeDamage();
    for (int i = 0; i < HostileVolume::toyCount; ++i) {
        m_mac.file(HostileVolume::toy(i) + "/Contents/MacOS/main", m_native);
        m_mac.file(HostileVolume::toy(i) + "/Contents/PlugIns/old", m_intel);
    }
    return std::move(m_result);
}

void HostileWriter::promise(const std::string& path, ItemKind kind,
                            std::optional<CompatibilityStatus> status, std::optional<Texts> parts) {
    m_result.promises.push_back({path, kind, status, std::move(parts)});
}

void HostileWriter::writeHalf(const std::string& path) {
    // Second names for two files: some thousand copies would be hard on a disk.
    m_mac.hardLink(path + "/Contents/MacOS/main", nativeProgram);
    m_mac.hardLink(path + "/Contents/MacOS/old", intelProgram);
}

bool HostileWriter::stands(const std::string& path) const {
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(m_mac.hostPath(path), error));
}

void HostileWriter::silent(const std::string& path, Maker make) {
    (m_mac.*make)(path);
    if (stands(path))
        m_result.silent.push_back(path);
}

HostileWriter::Texts HostileWriter::waysOutside(const std::string& file) const {
    std::string up;
    for (int i = 0; i < 20; ++i)
        up += "../";
    const std::string place = m_outside.hostPath('/' + file);
    return {place, up + place, "/proc/self/root" + place,
            "/.." + place.substr(m_outside.root().rfind('/'))};
}

void HostileWriter::writeOutside() {
    const std::string name(HostileVolume::canary);
    m_outside.bundle('/' + name + ".app")
        .identifier("com." + name + ".app")
        .info("CFBundleName", name)
        .executable(name, {Slice::x86_64})
        .file("Contents/PlugIns/" + name, m_intel);
    m_outside.file("/bin/" + name, m_intel);
    m_outside.plist("/agents/" + name + ".plist",
                    PlistDictionary{{"Label", name}, {"Program", "/usr/local/bin/intel"}});
}

void HostileWriter::writeGoodObjects() {
    const struct {
        std::string path;
        ItemKind kind;
        CompatibilityStatus status;
        std::vector<Slice> slices;
        std::vector<std::pair<std::string, Slice>> parts;
    } bundles[] = {
        {"/Applications/Native.app", application, native, {Slice::x86_64, Slice::arm64}, {}},
        {"/Applications/Intel.app", application, needsRosetta, {Slice::x86_64}, {}},
        {"/Applications/Mixed.app",
         application,
         native,
         {Slice::arm64e},
         {{"old", Slice::x86_64}, {"older", Slice::i386}, {"new", Slice::arm64}}},
        {"/Applications/32 Bit.app", application, incompatible, {Slice::i386}, {}},
        {"/Applications/PowerPC.app",
         application,
         incompatible,
         {Slice::ppc, Slice::ppc64},
         {{"old", Slice::x86_64}}},
        {"/Applications/Script.app", application, unknown, {}, {}},
        {"/Applications/Starter.app", application, needsRosetta, {}, {{"run", Slice::x86_64}}},
        {"/Applications/a/b/c/d/Fifth.app", application, native, {Slice::arm64}, {}},
        {"/Applications/Utilities/Z.APP", application, needsRosetta, {Slice::x86_64}, {}},
        {"/Library/Audio/Plug-Ins/VST3/Old.vst3", audioPlugin, needsRosetta, {Slice::x86_64}, {}},
        {"/Library/Audio/Plug-Ins/Components/New.component",
         audioPlugin,
         native,
         {Slice::arm64},
         {{"old", Slice::x86_64}}},
        {"/Library/QuickLook/Look.qlgenerator", systemExtension, incompatible, {Slice::i386}, {}},
        {"/Users/\x1b[31m\xFF/Applications/Home.app", application, native, {Slice::arm64}, {}},
    };
    for (const auto& good : bundles) {
        auto bundle = m_mac.bundle(good.path);
        bundle.identifier("org.example.good");
        if (good.slices.empty())
            bundle.file("Contents/MacOS/start", "#!/bin/sh\n");
        else
            bundle.executable("program", good.slices);
        Texts parts;
        for (const auto& [name, slice] : good.parts) {
            bundle.file("Contents/PlugIns/" + name, thinMachO(slice));
            if (slice != Slice::arm64)
                parts.push_back(name);
        }
        promise(good.path, good.kind, good.status, parts);
    }
}

/// Links with the name of an application. Each is one, wherever it leads.
void HostileWriter::writeLinks() {
    const std::string links = "/Applications/Links/", hops = "/hops/";
    writeHalf("/hops/0");
    for (int i = 1; i <= 40; ++i)
        m_mac.link(hops + std::to_string(i), std::to_string(i - 1));
    m_mac.link("/ring/one", "../ring/two/three").link("/ring/two", "one/four");
    const struct {
        std::string name, target;
        std::optional<CompatibilityStatus> status;
        std::optional<Texts> parts = Texts();
    } tricks[] = {
        {"Self", "Self.app", unknown},
        {"Ping", "Pong.app", unknown},
        {"Pong", "Ping.app", unknown},
        {"Ring", "/ring/one/x.app", unknown},
        {"Nowhere", "/no/such/place", unknown},
        {"Longest", std::string(4095, 'x'), unknown},
        {"Just few enough", "/hops/38", native, Texts{"old"}}, // two more lead here from a home
        {"One too many", "/hops/40", unknown},
        {"Everything", "/", {}, {}}, // the whole volume as one bundle
    };
    for (const auto& [name, target, status, parts] : tricks) {
        m_mac.link(links + name + ".app", target);
        promise(links + name + ".app", application, status, parts);
    }
    int number = 0;
    for (const std::string& way : waysOutside(std::string(HostileVolume::canary) + ".app")) {
        const std::string link = links + "Outside" + std::to_string(number++) + ".app";
        m_mac.link(link, way);
        promise(link, application, unknown);
    }
}

/// Links that take thousands of steps to follow, to places with thousands of files.
void HostileWriter::writeDetours() {
    std::string deep = "/detours", around;
    for (int i = 0; i < 40; ++i)
        deep += "/x";
    for (int i = 0; i < 60; ++i)
        around += "../x/";
    const std::string bundle = deep + "/bundle", program = bundle + "/Contents/MacOS/main";
    Texts parts;
    m_mac.file(program, m_intel).crowd(deep + "/bin", crowdSize);
    for (int i = 0; i < 3900; ++i) {
        parts.push_back(std::to_string(i));
        m_mac.hardLink(bundle + '/' + parts.back(), program);
    }
    m_mac.link(deep + "/to bundle", around + "bundle").link(deep + "/to bin", around + "bin");
    m_mac.link("/Applications/Detours.app", deep + "/to bundle");
    m_mac.link("/opt/local/bin", deep + "/to bin");
    promise("/Applications/Detours.app", application, needsRosetta, parts);
}

/// Names that would do something to a terminal, a shell, a report or a log.
void HostileWriter::writeNames() {
    const std::string names[] = {
        "\x1b[2J\x1b[1;31mred",
        "\x1b]0;title\x07",
        "\xC2\x9B"
        "31m",
        "line\nline\r\nline",
        "\xE2\x80\xAEtxt.ppa",
        "\xE2\x80\xA8line\xE2\x80\xA9paragraph",
        "\xFF\xFE\xC0\x80\xED\xA0\x80\xF4\x90\x80\x80",
        "half a character \xE2\x82",
        "a\u0300\u0301\u0302\u0303\u0304\u0305\u0306",
        "\\..\\..\\windows",
        "quotes \"';`,|=cmd|' /C calc'!A1",
        "**bold** <b>&amp; [link](http:x)",
        "%s%n%d $(touch x) -rf *",
        std::string(251, 'l'),
    };
    for (const std::string& name : names) {
        const std::string bundle = "/Applications/Names/" + name + ".app";
        writeHalf(bundle);
        promise(bundle, application, native, Texts{"old"});
    }
}

void HostileWriter::writeTools() {
    const std::string bin = "/usr/local/bin/", sbin = "/opt/homebrew/bin/";
    const auto tool = [&](const std::string& path, Slice slice, CompatibilityStatus status) {
        m_mac.file(path, thinMachO(slice));
        promise(path, commandLineTool, status);
    };
    tool(bin + "native", Slice::arm64, native);
    tool(bin + "intel", Slice::x86_64, needsRosetta);
    tool(bin + "old", Slice::i386, incompatible);
    for (const std::string& name : namesOfEveryByte())
        tool(bin + name, Slice::x86_64, needsRosetta);
    tool(bin + std::string(255, 'l'), Slice::arm64, native);
    tool(bin + "terabyte", Slice::x86_64, needsRosetta);
    m_mac.file(bin + "terabyte", m_intel, terabyte);
    m_mac.link(sbin + "linked", "../Cellar/linked").file("/opt/homebrew/Cellar/linked", m_intel);
    promise(sbin + "linked", commandLineTool, needsRosetta);
    m_mac.hardLink(sbin + "second name", bin + "native");
    promise(sbin + "second name", commandLineTool, native);

    // None of these is a program.
    fifo(bin + "fifo");
    socket(bin + "socket");
    device(bin + "device");
    m_mac.file(bin + "closed", m_intel).mode(bin + "closed", 0);
    m_mac.link(bin + "loop", "loop").link(bin + "folder", "/").link(bin + "to fifo", "fifo");
    m_mac.link(bin + "same", "native").link(bin + "z", "/usr/../usr/local/bin/./native");
    for (const std::string& way : waysOutside("bin/" + std::string(HostileVolume::canary)))
        m_mac.link(bin + "outside" + std::to_string(way.size()), way);
}

void HostileWriter::writeServices() {
    const std::string daemons = "/Library/LaunchDaemons/", helper = "/Library/Helpers/";
    const auto service = [&](const std::string& name, const PlistValue& program) {
        m_mac.plist(daemons + name + ".plist",
                    PlistDictionary{{"Label", name}, {"ProgramArguments", PlistList{program}}},
                    PlistForm::binary);
    };
    m_mac.file(helper + "intel", m_intel).file(helper + "native", m_native);
    service("intel", helper + "intel");
    promise(helper + "intel", launchService, needsRosetta);
    service("\x1b[5mname", helper + "native");
    promise(helper + "native", launchService, native);

    // None of these starts anything that is not known yet.
    fifo(daemons + "fifo.plist");
    fifo(helper + "fifo");
    device(daemons + "device.plist");
    m_mac.folder(daemons + "folder.plist").link(daemons + "loop.plist", "loop.plist");
    m_mac.file(daemons + "terabyte.plist", {}, terabyte);
    m_mac.file(daemons + "closed.plist", "x").mode(daemons + "closed.plist", 0);
    const std::string canary(HostileVolume::canary);
    for (const std::string& way : waysOutside("agents/" + canary + ".plist"))
        m_mac.link(daemons + "outside" + std::to_string(way.size()) + ".plist", way);
    for (const std::string& way : waysOutside("bin/" + canary))
        service("to outside " + std::to_string(way.size()), way);
    for (const std::string& odd : {helper + "fifo", helper, std::string("/"), std::string(),
                                   std::string(70'000, '/'), std::string("/usr/local/bin/loop")})
        service("odd " + std::to_string(odd.size()), odd);
    service("a number", 5);
}

/// Places that are searched, and are not what they should be.
void HostileWriter::writeRoots() {
    fifo("/Users/fifo");
    fifo("/Library/Audio/Plug-Ins/VST");
    m_mac.file("/usr/local/sbin", m_intel).link("/opt/homebrew/sbin", "bin");
    m_mac.link("/Library/PreferencePanes", "PreferencePanes").link("/Library/Spotlight", "/");
    m_mac.link("/Library/Screen Savers", waysOutside("")[1]).link("/Users/linked", "/");
    m_mac.link("/Users/anna/Applications", "/Applications").folder("/Users/closed/Applications");
    m_mac.mode("/Users/closed", 0);
    m_mac.tower("/Applications/tower", 5000, "d", "/usr/local/bin/intel");
}

} // namespace veridane::test
