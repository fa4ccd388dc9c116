#include "scan/FileItems.h"
#include "support/VolumeTest.h"

#include <algorithm>

namespace veridane::test {
namespace {

Texts textsOf(const std::vector<Path>& paths) {
    Texts texts;
    std::ranges::transform(paths, std::back_inserter(texts), &Path::text);
    return texts;
}

using Targets = VolumeTest;

TEST_F(Targets, ARowOfAHomeStandsOnceForEachHomeInTheirOrder) {
    const SearchLocations locations({Path("/Users/jo"), Path("/Users/anna"), Path("/Users/jo")});
    EXPECT_EQ(textsOf(locations.applicationRoots()),
              (Texts{"/Applications", "/Applications/Utilities", "/Users/anna/Applications",
                     "/Users/jo/Applications"}));
}

TEST_F(Targets, TheWalkFindsBundlesDownToItsFifthLevelAndNothingInsideThem) {
    volume.folder("/A/Umlaut Ä.app").folder("/A/CAPITALS.APP").folder("/A/Outer.app/Inner.app");
    volume.folder("/A/a/b/c/d/Fifth.app").folder("/A/a/b/c/d/e/Sixth.app").folder("/A/app");
    volume.folder("/A/Old.appdownload/In it.app").folder("/A/.hidden/Secret.app");
    volume.folder("/A/.Dot.app").file("/A/File.app", "no folder");
    volume.folder("/elsewhere/Deep.app").link("/A/Link.app", "/elsewhere");
    const auto bundlesBelow = [this](const char* root) {
        const auto& extensions = SearchLocations::applicationExtensions;
        return textsOf(findBundles(volume.files(), Path(root), extensions));
    };
    EXPECT_EQ(bundlesBelow("/A"), (Texts{"/A/CAPITALS.APP", "/A/File.app", "/A/Link.app",
                                         "/A/Old.appdownload/In it.app", "/A/Outer.app",
                                         "/A/Umlaut Ä.app", "/A/a/b/c/d/Fifth.app"}));
    EXPECT_EQ(bundlesBelow("/missing"), Texts());
}

TEST_F(Targets, ALinkedToolKeepsItsNameAndPathAndIsReadFromItsTarget) {
    const SignatureSpec spec{.teamIdentifier = "TEAM123456",
                             .leafCommonName = "Developer ID Application: Foo (T)"};
    const Bytes program = thinMachO(Slice::x86_64, embeddedSignature(spec));
    volume.file("/Cellar/foo-1", program).modified("/Cellar/foo-1", 1'500'000'000);
    volume.link("/usr/local/bin/foo", "../../../Cellar/foo-1");
    const FileTarget target{Path("/usr/local/bin/foo"), {}, {}};
    const auto item =
        makeFileItem(volume.files(), target, volume.files().resolvingLinks(target.path));
    ASSERT_TRUE(item);
    EXPECT_EQ((Texts{item->name, item->path, item->vendor.value_or(""),
                     item->teamIdentifier.value_or("")}),
              (Texts{"foo", "/usr/local/bin/foo", "Foo", "TEAM123456"}));
    EXPECT_EQ(item->status, CompatibilityStatus::needsRosetta);
    EXPECT_EQ(item->updateSource, UpdateSource::developerID);
    EXPECT_EQ(item->sizeOnDisk, std::ssize(program));
    EXPECT_EQ(item->lastModified, Date(std::chrono::seconds(1'500'000'000)));
}

TEST_F(Targets, ALaunchPlistIsReducedToItsProgram) {
    const PlistValue arguments = PlistList{"/tool", "--flag"};
    const auto target = [](const char* path, const char* name) {
        return FileTarget{Path(path), ItemKind::launchService, name};
    };
    const std::tuple<const char*, PlistDictionary, std::vector<FileTarget>> cases[] = {
        {"program and label",
         {{"Label", "org.x"}, {"Program", "/tool"}},
         {target("/tool", "org.x")}},
        {"arguments, no label", {{"ProgramArguments", arguments}}, {target("/tool", "tool")}},
        {"empty label", {{"Label", ""}, {"ProgramArguments", arguments}}, {target("/tool", "")}},
        {"a relative one", {{"Program", "tool"}, {"ProgramArguments", arguments}}, {}},
        {"an argument that is no text", {{"ProgramArguments", PlistList{"/tool", 7}}}, {}},
        {"no arguments", {{"ProgramArguments", PlistList{}}}, {}},
        {"inside an application", {{"Program", "/Foo.app/Contents/MacOS/Foo"}}, {}},
        {"missing program", {{"Program", "/gone"}}, {}},
    };
    volume.file("/tool", "").file("/Foo.app/Contents/MacOS/Foo", "");
    volume.file("/Library/LaunchDaemons/damaged.plist", "bplist00");
    volume.fifo("/Library/LaunchDaemons/fifo.plist");
    for (const auto& [what, plist, expected] : cases) {
        volume.plist("/Library/LaunchDaemons/x.PLIST", plist, PlistForm::binary);
        volume.plist("/Library/LaunchDaemons/x.plist.bak", plist);
        const auto found = launchServiceTargets(volume.files(), SearchLocations({}));
        EXPECT_EQ(found, expected) << what;
    }
}

} // namespace
} // namespace veridane::test
