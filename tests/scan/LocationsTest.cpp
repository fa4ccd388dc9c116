#include "scan/SearchLocations.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace veridane {
namespace {

using namespace test;
using Texts = std::vector<std::string>;

Texts textsOf(const std::vector<Path>& paths) {
    Texts texts;
    std::ranges::transform(paths, std::back_inserter(texts), &Path::text);
    return texts;
}

TEST(Locations, ARowOfAHomeStandsOnceForEachHomeInTheirOrder) {
    const SearchLocations locations({Path("/Users/jo"), Path("/Users/anna"), Path("/Users/jo")});
    EXPECT_EQ(textsOf(locations.applicationRoots()),
              (Texts{"/Applications", "/Applications/Utilities", "/Users/anna/Applications",
                     "/Users/jo/Applications"}));
    EXPECT_EQ(textsOf(locations.commandLineToolRoots()),
              (Texts{"/usr/local/bin", "/usr/local/sbin", "/opt/homebrew/bin", "/opt/homebrew/sbin",
                     "/opt/local/bin", "/Users/anna/.local/bin", "/Users/jo/.local/bin"}));
    EXPECT_EQ(textsOf(SearchLocations({Path("/h")}).extensionRoots()),
              (Texts{"/Library/PreferencePanes", "/h/Library/PreferencePanes", "/Library/QuickLook",
                     "/h/Library/QuickLook", "/Library/Spotlight", "/Library/Screen Savers",
                     "/h/Library/Screen Savers", "/Library/SystemExtensions"}));
}

TEST(Locations, TheHomesOfAMountedMacAreTheVisibleFoldersOfUsersButTheSharedOne) {
    VolumeBuilder volume;
    volume.folder("/Users/jonas").folder("/Users/anna").folder("/Users/Shared");
    volume.folder("/Users/.hidden").file("/Users/file", "").link("/Users/linked", "anna");
    EXPECT_EQ(textsOf(SearchLocations::homesOnVolume(volume.files())),
              (Texts{"/Users/anna", "/Users/jonas"}));
}

TEST(Locations, TheWalkFindsBundlesDownToItsFifthLevelAndNothingInsideThem) {
    VolumeBuilder volume;
    volume.folder("/Applications/Umlaut Ä.app").folder("/Applications/CAPITALS.APP");
    volume.folder("/Applications/Outer.app/Contents/Inner.app");
    volume.folder("/Applications/a/b/c/d/Fifth.app").folder("/Applications/a/b/c/d/e/Sixth.app");
    volume.folder("/Applications/Old.appdownload/In a package.app");
    volume.folder("/Applications/.hidden/Secret.app").folder("/Applications/.Dot.app");
    volume.folder("/Applications/app").file("/Applications/File.app", "no folder");
    volume.folder("/elsewhere/Deep.app").link("/Applications/Link.app", "/elsewhere");
    EXPECT_EQ(
        textsOf(findBundles(volume.files(), Path("/Applications"),
                            SearchLocations::applicationExtensions)),
        (Texts{"/Applications/CAPITALS.APP", "/Applications/File.app", "/Applications/Link.app",
               "/Applications/Old.appdownload/In a package.app", "/Applications/Outer.app",
               "/Applications/Umlaut Ä.app", "/Applications/a/b/c/d/Fifth.app"}));
    EXPECT_TRUE(
        findBundles(volume.files(), Path("/missing"), SearchLocations::applicationExtensions)
            .empty());
}

} // namespace
} // namespace veridane
