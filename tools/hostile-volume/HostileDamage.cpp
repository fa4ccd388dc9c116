#include "hostile-volume/HostileWriter.h"

#include <array>

namespace veridane::test {
namespace {

using enum CompatibilityStatus;

constexpr int filesOfEachSort = 500;

SignatureSpec signature() {
    SignatureSpec spec;
    spec.teamIdentifier = "ABCDE12345";
    spec.leafCommonName = "Developer ID Application: Grün & Söhne (ABCDE12345)";
    return spec;
}

/// Without the name of the program, so that no damage can name another one.
Bytes infoList(PlistForm form) {
    return plistFile(PlistDictionary{{"CFBundleName", "Grün 日本語 \U0001F600"},
                                     {"CFBundleIdentifier", "de.example.grün"},
                                     {"CFBundleVersion", "1.2.3"},
                                     {"LSApplicationCategoryType", "public.app-category.games"},
                                     {"Nested", PlistDictionary{{"List", PlistList{1, true, "x"}}}},
                                     {"SUFeedURL", "https://example.org/feed.xml"}},
                     form);
}

Bytes launchList(PlistForm form, const std::string& program) {
    return plistFile(PlistDictionary{{"Label", "de.example.grün"},
                                     {"ProgramArguments", PlistList{program, "--run"}},
                                     {"KeepAlive", true}},
                     form);
}

} // namespace

Bytes HostileWriter::damaged(const Bytes& bytes) {
    ++m_result.damagedFiles;
    return m_mutator.damaged(bytes);
}

/// Files that only bad luck, or patience, makes. What surrounds them is good and promised.
void HostileWriter::writeDamage() {
    const std::array forms{PlistForm::xml, PlistForm::binary};
    const std::array headers{thinMachO(Slice::x86_64), thinMachO(Slice::ppc),
                             universalMachO({Slice::x86_64, Slice::arm64}),
                             universalMachO({Slice::i386, Slice::arm64e}, true),
                             machO({Slice::x86_64, Slice::arm64}, embeddedSignature(signature()))};
    const std::string parts = "/Applications/Damage/parts.app",
                      tools = "/usr/local/bin/damaged-file-",
                      agents = "/Library/LaunchAgents/damaged-", helpers = "/opt/damaged-file-";
    writeHalf(parts);
    promise(parts, ItemKind::application, native, std::nullopt);

    for (int i = 0; i < filesOfEachSort; ++i) {
        const std::string number = std::to_string(i);
        const PlistForm form = forms[static_cast<std::size_t>(i) % forms.size()];
        const Bytes& code = headers[static_cast<std::size_t>(i) % headers.size()];
        const auto bundle = [&](const char* sort, CompatibilityStatus status) {
            std::string path = std::string("/Applications/Damage/") + sort + number + ".app";
            writeHalf(path);
            promise(path, ItemKind::application, status, Texts{"old"});
            return path + "/Contents/";
        };

        m_mac.file(bundle("list", native) + "Info.plist", damaged(infoList(form)));

        // Damage to the signature alone leaves the header in front of it good.
        m_mac.file(bundle("signed", native) + "MacOS/main",
                   thinMachO(Slice::arm64, damaged(embeddedSignature(signature()))));

        const std::string sealed = bundle("sealed", needsRosetta);
        m_mac.file(sealed + "MacOS/main", "#!/bin/sh\n");
        m_mac.file(sealed + "_CodeSignature/CodeDirectory",
                   damaged(codeDirectoryFile(signature())));
        m_mac.file(sealed + "_CodeSignature/CodeSignature", damaged(cmsFile(signature())));

        m_mac.file(parts + "/Contents/Resources/" + number, damaged(code));
        m_mac.file(tools + number, damaged(code));
        m_mac.file(helpers + number, code);
        m_mac.file(agents + number + ".plist", damaged(launchList(form, helpers + number)));
    }
}

} // namespace veridane::test
