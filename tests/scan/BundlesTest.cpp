#include "scan/BundleInspector.h"
#include "scan/SignatureInspector.h"
#include "support/VolumeTest.h"

namespace veridane::test {
namespace {

using enum CompatibilityStatus;

ScanItem inspect(const VolumeBuilder& volume, const std::string& path = "/Foo.app") {
    return BundleInspector::inspect(volume.files(), Path(path), ItemKind::application);
}

using Bundles = VolumeTest;

TEST_F(Bundles, EverythingThatABundleSaysOfItselfIsInItsItem) {
    volume.bundle("/opt/real/Other.app")
        .info("CFBundleDisplayName", 7)
        .info("CFBundleName", "Bär")
        .identifier("com.example.foo")
        .version("1.2", "345")
        .category("music")
        .sparkleFeed("https://feed.example/appcast.xml")
        .executable("Foo", {Slice::x86_64})
        .signedBy({.teamIdentifier = "ABCDE12345",
                   .leafCommonName = "Developer ID Application: Klang GmbH (ABCDE12345)"})
        .modified(1'700'000'000);
    volume.link("/Applications/Foo.app", "/opt/real/Other.app");
    for (const char* path : {"/opt/real/Other.app", "/Applications/Foo.app"}) {
        const ScanItem item = inspect(volume, path);
        EXPECT_EQ(item.path, path);
        EXPECT_EQ(item.architecture.summaryText(), "x86_64");
        EXPECT_EQ(item.status, needsRosetta);
        EXPECT_EQ((std::vector{item.name, *item.bundleIdentifier, *item.version, *item.buildNumber,
                               *item.categoryDescription, *item.vendor, *item.teamIdentifier,
                               *item.sparkleFeedURL}),
                  (Texts{"Bär", "com.example.foo", "1.2", "345", "Musik", "Klang GmbH",
                         "ABCDE12345", "https://feed.example/appcast.xml"}));
        EXPECT_EQ(item.lastModified, Date(std::chrono::seconds(1'700'000'000)));
        EXPECT_GT(item.sizeOnDisk, 0);
        EXPECT_TRUE(item.intelComponents.empty());
    }
}

TEST_F(Bundles, ABundleWithoutAnythingReadableIsStillAnItem) {
    volume.folder("/Foo Bar.app").fifo("/Pipe.app/Contents/Info.plist").file("/File.app", "x");
    volume.file("/Damaged.app/Contents/Info.plist", "<plist><dict><key>");
    for (const std::string name : {"Foo Bar", "Pipe", "File", "Damaged"}) {
        const ScanItem item = inspect(volume, '/' + name + ".app");
        EXPECT_EQ(item.name, name);
        EXPECT_EQ(item.architecture, emptyReport);
        EXPECT_EQ(item.updateSource, UpdateSource::unsigned_);
        EXPECT_TRUE(item.sizeOnDisk.has_value());
    }
}

TEST_F(Bundles, TheMainExecutableIsTheNamedOneElseTheFirstThatCouldBeIt) {
    // The last number counts the components: the main executable is none of them.
    const std::tuple<std::optional<std::string>, Texts, const char*, std::size_t> cases[] = {
        {"B", {"Contents/MacOS/A", "Contents/MacOS/B"}, "C", 1},
        {"missing, so the first listed", {"Contents/MacOS/A"}, "Contents/MacOS/B", 0},
        {{}, {"tool"}, "a script", 0},
        {"/Contents/Helpers/A", {"Contents/Helpers/A"}, "C", 0},
        {{}, {"Contents/Helpers/A"}, "Contents/MacOS/run", 1},
    };
    for (const auto& [named, intel, script, components] : cases) {
        VolumeBuilder fresh;
        for (const std::string& program : intel)
            fresh.file("/Foo.app/" + program, thinMachO(Slice::x86_64));
        fresh.bundle("/Foo.app").file(script, "#!/bin/sh");
        if (named)
            fresh.bundle("/Foo.app").info("CFBundleExecutable", *named);
        const ScanItem item = inspect(fresh);
        EXPECT_EQ(item.status, needsRosetta) << script;
        EXPECT_EQ(item.intelComponents.size(), components) << script;
    }
}

TEST_F(Bundles, TheFirstRuleThatHoldsNamesTheUpdateSource) {
    using enum UpdateSource;
    const SignatureSpec developer{.leafCommonName = "Developer ID Application: Foo (ABCDE12345)"};
    const SignatureSpec apple{.leafCommonName = "Apple Mac OS Application Signing"};
    const auto sourceOf = [](const auto& build) {
        VolumeBuilder fresh;
        build(fresh.bundle("/Foo.app").executable("Foo", {Slice::arm64}));
        return inspect(fresh).updateSource;
    };
    EXPECT_EQ(sourceOf([](auto& b) { b.receipt().sparkleFeed("https://x/"); }), macAppStore);
    EXPECT_EQ(sourceOf([](auto& b) { b.file("_MASReceipt/receipt", "r"); }), macAppStore);
    EXPECT_EQ(sourceOf([&](auto& b) { b.sparkleFeed("").signedBy(developer); }), sparkle);
    EXPECT_EQ(sourceOf([](auto& b) { b.framework("Sparkle", {}); }), sparkle);
    EXPECT_EQ(sourceOf([&](auto& b) { b.signedBy(apple); }), macAppStore);
    EXPECT_EQ(sourceOf([&](auto& b) { b.signedBy(developer); }), developerID);
    EXPECT_EQ(sourceOf([](auto&) {}), unsigned_);
}

TEST_F(Bundles, CategoriesAndIdentifiersReadLikeNames) {
    using namespace BundleInspector;
    EXPECT_EQ(categoryLabel("public.app-category.developer-tools"), "Entwicklerwerkzeuge");
    EXPECT_EQ(categoryLabel("public.app-category.action-games"), "Action Games");
    EXPECT_EQ(categoryLabel("MUSIC"), "Music");
    EXPECT_EQ(vendorFromBundleIdentifier("com.example.tool"), "Example");
    EXPECT_EQ(vendorFromBundleIdentifier("de..klang"), "Klang");
    EXPECT_EQ(vendorFromBundleIdentifier("tool"), std::nullopt);
    EXPECT_EQ(vendorFromBundleIdentifier("...."), std::nullopt);
}

TEST(Signers, TheVendorIsWhatTheSummarySaysOfItsHolder) {
    const std::pair<CodeSignature, SignatureIdentity> cases[] = {
        {{}, {}},
        {{true, {}, ""}, {{}, {}, true, false}},
        {{false, "TEAM", {}}, {{}, "TEAM", true, false}},
        {{false, {}, "Mac Developer: "}, {"", {}, true, false}},
        {{true, {}, "Apple Mac OS Application Signing"}, {"Apple", {}, true, true}},
        {{true, {}, "developer ID Application: Foo"},
         {"developer ID Application: Foo", {}, true, false}},
        {{true, {}, "Developer ID Application: Foo (Bar) Ltd (ABCDE12345)"},
         {"Foo (Bar) Ltd", {}, true, false}},
        {{true, {}, "3rd Party Mac Developer Application:  Foo\u00A0 (ABC)"},
         {"Foo", {}, true, false}},
    };
    for (const auto& [declared, identity] : cases)
        EXPECT_EQ(SignatureInspector::identityOf(declared), identity)
            << declared.leafSubjectSummary.value_or("none");
}

} // namespace
} // namespace veridane::test
