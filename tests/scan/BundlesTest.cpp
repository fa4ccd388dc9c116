#include "scan/BundleInspector.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

using namespace test;
using enum CompatibilityStatus;

ScanItem inspect(const VolumeBuilder& volume, const char* path = "/Applications/Foo.app") {
    return BundleInspector::inspect(volume.files(), Path(path), ItemKind::application);
}

TEST(Bundles, EverythingThatABundleSaysOfItselfIsInItsItem) {
    VolumeBuilder volume;
    volume.bundle("/Applications/Foo.app")
        .info("CFBundleDisplayName", 7)
        .info("CFBundleName", "Bär")
        .identifier("com.example.foo")
        .version("1.2", "345")
        .category("music")
        .sparkleFeed("https://feed.example/appcast.xml")
        .executable("Foo", {Slice::x86_64, Slice::arm64})
        .signedBy({.teamIdentifier = "ABCDE12345",
                   .leafCommonName = "Developer ID Application: Klang GmbH (ABCDE12345)"})
        .modified(1'700'000'000);
    const ScanItem item = inspect(volume);
    EXPECT_EQ(item.name, "Bär");
    EXPECT_EQ(item.path, "/Applications/Foo.app");
    EXPECT_EQ(item.architecture.summaryText(), "x86_64 + arm64");
    EXPECT_EQ(item.status, native);
    EXPECT_EQ(item.bundleIdentifier, "com.example.foo");
    EXPECT_EQ(item.version, "1.2");
    EXPECT_EQ(item.buildNumber, "345");
    EXPECT_EQ(item.categoryDescription, "Musik");
    EXPECT_EQ(item.vendor, "Klang GmbH");
    EXPECT_EQ(item.teamIdentifier, "ABCDE12345");
    EXPECT_EQ(item.updateSource, UpdateSource::sparkle);
    EXPECT_EQ(item.sparkleFeedURL, "https://feed.example/appcast.xml");
    EXPECT_EQ(item.lastModified, Date(std::chrono::seconds(1'700'000'000)));
    EXPECT_GT(item.sizeOnDisk, 0);
    EXPECT_TRUE(item.intelComponents.empty());
}

TEST(Bundles, ABundleWithoutAnythingReadableIsStillAnItem) {
    VolumeBuilder volume;
    volume.folder("/Applications/Foo Bar.app").fifo("/Applications/Pipe.app/Contents/Info.plist");
    volume.file("/Applications/File.app", "a file");
    volume.file("/Applications/Damaged.app/Contents/Info.plist", "<plist><dict><key>");
    for (const char* name : {"Foo Bar", "Pipe", "File", "Damaged"}) {
        const ScanItem item =
            inspect(volume, (std::string("/Applications/") + name + ".app").c_str());
        EXPECT_EQ(item.name, name);
        EXPECT_EQ(item.status, unknown);
        EXPECT_EQ(item.architecture, emptyReport);
        EXPECT_EQ(item.updateSource, UpdateSource::unsigned_);
        EXPECT_EQ(item.vendor, std::nullopt);
        EXPECT_TRUE(item.sizeOnDisk.has_value());
    }
}

TEST(Bundles, TheMainExecutableIsTheNamedOneElseTheFirstThatCouldBeIt) {
    const Bytes intel = thinMachO(Slice::x86_64);
    const std::string script = "#!/bin/sh\n";
    const struct {
        const char* what;
        const char* named;
        std::vector<const char*> programs;
        const char* script;
        CompatibilityStatus expected;
        std::size_t components; // the main executable is none of them
    } cases[] = {
        {"named", "B", {"Contents/MacOS/A", "Contents/MacOS/B"}, "C", needsRosetta, 1},
        {"at the top level", "Foo", {"Foo"}, "C", needsRosetta, 0},
        {"missing: the first of the listing",
         "X",
         {"Contents/MacOS/A"},
         "Contents/MacOS/B",
         needsRosetta,
         0},
        {"empty name", "", {"Contents/MacOS/A"}, "C", needsRosetta, 0},
        {"flat without a key", nullptr, {"tool"}, "a script", needsRosetta, 0},
        {"an absolute name stays inside",
         "/Contents/Helpers/A",
         {"Contents/Helpers/A"},
         "C",
         needsRosetta,
         0},
        {"a script in front of Intel code",
         nullptr,
         {"Contents/Helpers/A"},
         "Contents/MacOS/run",
         needsRosetta,
         1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        VolumeBuilder volume;
        {
            auto bundle = volume.bundle("/Applications/Foo.app");
            if (c.named)
                bundle.info("CFBundleExecutable", c.named);
            for (const char* program : c.programs)
                bundle.file(program, intel);
            bundle.file(c.script, script);
        }
        const ScanItem item = inspect(volume);
        EXPECT_EQ(item.status, c.expected);
        EXPECT_EQ(item.intelComponents.size(), c.components);
    }
}

TEST(Bundles, TheFirstRuleThatHoldsNamesTheUpdateSource) {
    const SignatureSpec developer{.leafCommonName = "Developer ID Application: Foo (ABCDE12345)"};
    const SignatureSpec apple{.leafCommonName = "Apple Mac OS Application Signing"};
    const auto sourceOf = [](const auto& build) {
        VolumeBuilder volume;
        {
            auto bundle = volume.bundle("/Applications/Foo.app");
            build(bundle.executable("Foo", {Slice::arm64}));
        }
        return inspect(volume).updateSource;
    };
    EXPECT_EQ(sourceOf([](auto& b) { b.receipt().sparkleFeed("https://x.example/"); }),
              UpdateSource::macAppStore);
    EXPECT_EQ(sourceOf([](auto& b) { b.file("_MASReceipt/receipt", "r"); }),
              UpdateSource::macAppStore);
    EXPECT_EQ(sourceOf([&](auto& b) { b.sparkleFeed("").signedBy(developer); }),
              UpdateSource::sparkle);
    EXPECT_EQ(sourceOf([](auto& b) { b.framework("Sparkle", thinMachO(Slice::arm64)); }),
              UpdateSource::sparkle);
    EXPECT_EQ(sourceOf([&](auto& b) { b.signedBy(apple); }), UpdateSource::macAppStore);
    EXPECT_EQ(sourceOf([&](auto& b) { b.signedBy(developer); }), UpdateSource::developerID);
    EXPECT_EQ(sourceOf([](auto&) {}), UpdateSource::unsigned_);
}

TEST(Bundles, ALinkedBundleKeepsItsOwnPathAndNameAndIsReadThroughTheLink) {
    VolumeBuilder volume;
    volume.bundle("/opt/real/Other.app")
        .executable("Other", {Slice::x86_64})
        .modified(1'600'000'000);
    volume.link("/Applications/Foo.app", "/opt/real/Other.app");
    const ScanItem item = inspect(volume);
    EXPECT_EQ(item.path, "/Applications/Foo.app");
    EXPECT_EQ(item.status, needsRosetta);
    EXPECT_TRUE(item.intelComponents.empty());
    EXPECT_GT(item.sizeOnDisk, 0);
    EXPECT_EQ(item.lastModified, Date(std::chrono::seconds(1'600'000'000)));
}

TEST(Bundles, CategoriesAndIdentifiersReadLikeNames) {
    EXPECT_EQ(BundleInspector::categoryLabel("public.app-category.developer-tools"),
              "Entwicklerwerkzeuge");
    EXPECT_EQ(BundleInspector::categoryLabel("public.app-category.action-games"), "Action Games");
    EXPECT_EQ(BundleInspector::categoryLabel("MUSIC"), "Music");
    using Vendor = std::optional<std::string>;
    const std::pair<Vendor, Vendor> vendors[] = {
        {"com.example.tool", "Example"}, {"de..klang", "Klang"}, {"tool", std::nullopt},
        {"....", std::nullopt},          {"", std::nullopt},     {std::nullopt, std::nullopt},
    };
    for (const auto& [identifier, vendor] : vendors)
        EXPECT_EQ(BundleInspector::vendorFromBundleIdentifier(identifier), vendor);
}

} // namespace
} // namespace veridane
