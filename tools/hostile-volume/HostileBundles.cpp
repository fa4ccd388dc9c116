#include "hostile-volume/HostileBytes.h"
#include "hostile-volume/HostileWriter.h"

#include <functional>
#include <utility>

namespace veridane::test {
namespace {

using enum CompatibilityStatus;
using enum ItemKind;

constexpr int levels = 5000, crowdSize = 100'000;

// Of every bundle here
constexpr const char *program = "/Contents/MacOS/main", *old = "/Contents/MacOS/old",
                     *extra = "/Contents/Extra", *list = "/Contents/Info.plist",
                     *seal = "/Contents/_CodeSignature/CodeDirectory",
                     *receipt = "/Contents/_MASReceipt/receipt";

std::string pathOf(const std::string& name) {
    return "/Applications/" + name + ".app";
}

} // namespace

/// Parts that end at each byte of a universal header. Once its first entry is whole, which is the
/// Intel one, they are Intel-only; with the second one they are native.
void HostileWriter::writeShortFiles(const std::string& bundle, Texts& parts) {
    const Bytes whole = universalMachO({Slice::x86_64, Slice::arm64});
    for (std::ptrdiff_t size = 0; size <= 64; ++size) {
        const std::string name = "cut" + std::to_string(size);
        m_mac.file(bundle + extra + '/' + name, Bytes(whole.begin(), whole.begin() + size));
        if (size >= 28 && size < 48)
            parts.push_back(name);
    }
}

void HostileWriter::writeDolls(const std::string& bundle, Texts& parts) {
    std::string doll = bundle;
    for (int i = 0; i < 100; ++i) {
        doll += "/Contents/d.app";
        writeHalf(doll);
        parts.emplace_back("old");
    }
}

/// What stands in a bundle beside its program and its old part, and may change nothing.
void HostileWriter::writeTricksBesideGoodFiles() {
    const std::string canary = std::string(HostileVolume::canary) + ".app";
    using Trick = std::function<void(const std::string& bundle, Texts& parts)>;
    const std::pair<const char*, Trick> tricks[] = {
        {"fifo as list",
         [&](auto& b, auto&) {
             fifo(b + list);
         }},
        {"socket as list",
         [&](auto& b, auto&) {
             socket(b + list);
         }},
        {"device as list",
         [&](auto& b, auto&) {
             device(b + list);
         }},
        {"folder as list",
         [&](auto& b, auto&) {
             m_mac.folder(b + list);
         }},
        {"loop as list",
         [&](auto& b, auto&) {
             m_mac.link(b + list, "Info.plist");
         }},
        {"closed list",
         [&](auto& b, auto&) {
             m_mac.file(b + list, "x").mode(b + list, 0);
         }},
        {"list of a terabyte",
         [&](auto& b, auto&) {
             m_mac.file(b + list, {'<'}, terabyte);
         }},
        {"list of too many wide characters",
         [&](auto& b, auto&) {
             m_mac.file(b + list, {0xFE, 0xFF}, std::int64_t{64} << 20);
         }},
        {"list outside",
         [&](auto& b, auto&) {
             m_mac.link(b + list, waysOutside(canary + "/Contents/Info.plist")[1]);
         }},
        {"fifo as receipt",
         [&](auto& b, auto&) {
             fifo(b + receipt);
         }},
        {"fifo as seal",
         [&](auto& b, auto&) {
             fifo(b + seal);
         }},
        {"seal of a terabyte",
         [&](auto& b, auto&) {
             m_mac.file(b + seal, {}, terabyte);
         }},
        {"fifo as part",
         [&](auto& b, auto&) {
             fifo(b + extra);
         }},
        {"socket as part",
         [&](auto& b, auto&) {
             socket(b + extra);
         }},
        {"device as part",
         [&](auto& b, auto&) {
             device(b + extra);
         }},
        {"closed part",
         [&](auto& b, auto&) {
             m_mac.file(b + extra, m_intel).mode(b + extra, 0);
         }},
        {"closed folder",
         [&](auto& b, auto&) {
             m_mac.file(b + extra + "/x", m_intel).mode(b + extra, 0);
         }},
        {"folder without a listing",
         [&](auto& b, auto&) {
             m_mac.file(b + extra + "/x", m_intel).mode(b + extra, 0111);
         }},
        {"folder without a way in",
         [&](auto& b, auto&) {
             m_mac.file(b + extra + "/x", m_intel).mode(b + extra, 0444);
         }},
        {"links to ancestors",
         [&](auto& b, auto&) {
             int number = 0;
             for (const char* target : {".", "..", "../../..", "/", "/Applications"})
                 m_mac.link(b + "/Contents/to " + std::to_string(number++), target);
         }},
        {"links outside",
         [&](auto& b, auto&) {
             for (const std::string& way : waysOutside(canary))
                 m_mac.link(b + "/Contents/to " + std::to_string(way.size()), way);
         }},
        {"program twice",
         [&](auto& b, auto&) {
             m_mac.hardLink(b + extra, b + program);
         }},
        {"part twice",
         [&](auto& b, auto& parts) {
             m_mac.hardLink(b + extra, b + old);
             parts.emplace_back("Extra");
         }},
        {"part of a terabyte",
         [&](auto& b, auto& parts) {
             m_mac.file(b + extra, m_intel, terabyte);
             parts.emplace_back("Extra");
         }},
        {"more bytes than can be counted",
         [&](auto& b, auto& parts) {
             for (const char* name : {"1", "2", "3"}) {
                 m_mac.largestFile(b + extra + '/' + name, m_intel);
                 parts.emplace_back(name);
             }
         }},
        {"parts with names of every byte",
         [&](auto& b, auto& parts) {
             for (const std::string& name : namesOfEveryByte()) {
                 m_mac.file(b + extra + '/' + name, m_intel);
                 parts.push_back(name);
             }
         }},
        {"long names",
         [&](auto& b, auto& parts) {
             parts.emplace_back(255, 'x');
             m_mac.file(b + '/' + std::string(255, 'f') + '/' + parts.back(), m_intel);
         }},
        {"files that end early",
         [&](auto& b, auto& parts) {
             writeShortFiles(b, parts);
         }},
        {"dolls",
         [&](auto& b, auto& parts) {
             writeDolls(b, parts);
         }},
        {"crowd",
         [&](auto& b, auto& parts) {
             m_mac.crowd(b + extra, crowdSize).file(b + extra + "/5x", m_intel);
             parts.emplace_back("5x");
         }},
        {"tower",
         [&](auto& b, auto& parts) {
             m_mac.tower(b + extra, levels, std::string(255, 'd'), b + old);
             for (int level = 10; level <= levels; level += 10)
                 parts.push_back("part-" + std::to_string(level));
         }},
        {"older than computers",
         [&](auto& b, auto&) {
             m_mac.modified(b, -terabyte);
         }},
        {"not born yet",
         [&](auto& b, auto&) {
             m_mac.modified(b, terabyte);
         }},
    };
    for (const auto& [name, play] : tricks) {
        const std::string bundle = pathOf(name);
        Texts parts{"old"};
        writeHalf(bundle);
        play(bundle, parts);
        promise(bundle, application, native, parts);
    }
    for (const HostileFile& header : hostileHeaders()) {
        const std::string bundle = pathOf(header.name);
        writeHalf(bundle);
        m_mac.file(bundle + program, header.content);
        promise(bundle, application, native, Texts{"old"});
    }
}

/// Bundles whose program cannot be read, so that their old part decides.
void HostileWriter::writeTricksAroundThePrograms() {
    const Bytes tooManySlices = bigEndian({0xCAFEBABE, 0xFFFFFFFF, 0x0100000C, 0, 0, 0, 0});
    const std::pair<const char*, std::function<void(const std::string& path)>> tricks[] = {
        {"fifo as program",
         [&](auto& p) {
             fifo(p);
         }},
        {"socket as program",
         [&](auto& p) {
             socket(p);
         }},
        {"device as program",
         [&](auto& p) {
             device(p);
         }},
        {"folder as program",
         [&](auto& p) {
             m_mac.folder(p);
         }},
        {"loop as program",
         [&](auto& p) {
             m_mac.link(p, "main");
         }},
        {"empty program",
         [&](auto& p) {
             m_mac.file(p, "");
         }},
        {"closed program",
         [&](auto& p) {
             m_mac.file(p, m_native).mode(p, 0);
         }},
        {"program of too many slices",
         [&](auto& p) {
             m_mac.file(p, tooManySlices);
         }},
        {"program that is its own folder",
         [&](auto& p) {
             m_mac.link(p, ".");
         }},
        {"program outside",
         [&](auto& p) {
             const std::string canary(HostileVolume::canary);
             m_mac.link(p, waysOutside(canary + ".app/Contents/MacOS/" + canary)[1]);
         }},
    };
    for (const auto& [name, play] : tricks) {
        m_mac.file(pathOf(name) + "/Contents/PlugIns/old", m_intel);
        play(pathOf(name) + program);
        promise(pathOf(name), application, needsRosetta, Texts{"old"});
    }
}

void HostileWriter::writeTricksInPlaceOfBundles() {
    const std::pair<const char*, std::function<void(const std::string& path)>> tricks[] = {
        {"file",
         [&](auto& b) {
             m_mac.file(b, m_intel);
         }},
        {"fifo",
         [&](auto& b) {
             fifo(b);
         }},
        {"socket",
         [&](auto& b) {
             socket(b);
         }},
        {"device",
         [&](auto& b) {
             device(b);
         }},
        {"empty",
         [&](auto& b) {
             m_mac.folder(b);
         }},
        {"closed",
         [&](auto& b) {
             m_mac.file(b + old, m_intel).mode(b, 0);
         }},
    };
    for (const auto& [name, play] : tricks) {
        play(pathOf(name));
        if (stands(pathOf(name))) // a device only for root
            promise(pathOf(name), application, unknown);
    }
    // Contents is nothing that could be gone into, and the program beside it.
    m_mac.file(pathOf("file as contents") + "/Contents", "x");
    fifo(pathOf("fifo as contents") + "/Contents");
    for (const char* name : {"file as contents", "fifo as contents"}) {
        m_mac.file(pathOf(name) + "/main", m_native);
        promise(pathOf(name), application, native);
    }
}

void HostileWriter::writeLists() {
    for (const auto& lists : {hostileLists(), oddLists()}) {
        for (const HostileFile& file : lists) {
            const std::string bundle = pathOf(file.name);
            writeHalf(bundle);
            m_mac.file(bundle + list, file.content);
            m_mac.file("/Library/LaunchAgents/" + file.name + ".plist", file.content);
            promise(bundle, application, native, Texts{"old"});
        }
    }
}

} // namespace veridane::test
