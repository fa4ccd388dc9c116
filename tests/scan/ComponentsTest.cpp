#include "scan/BundleWalk.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace veridane {
namespace {

using namespace test;
using Texts = std::vector<std::string>;

const Path bundle("/Applications/Foo.app");
const Path executable = bundle / "Contents/MacOS/Foo";

BundleWalk walk(const VolumeBuilder& volume, const std::optional<Path>& main = executable) {
    return walkBundle(volume.files(), bundle, main);
}

TEST(Components, FilesThatCannotRunNativelyAreListedByContentInTheOrderOfTheWalk) {
    VolumeBuilder volume;
    volume.bundle(bundle.bytes())
        .executable("Foo", {Slice::x86_64})
        .framework("Old", thinMachO(Slice::x86_64))
        .file("Contents/PlugIns/B.bundle/Contents/MacOS/B", thinMachO(Slice::i386))
        .file("Contents/PlugIns/B", thinMachO(Slice::arm64))
        .file("Contents/Resources/readme.txt", thinMachO(Slice::unlisted))
        .file("Contents/Resources/.hidden.dylib", thinMachO(Slice::x86_64))
        .file("Contents/Resources/both", universalMachO({Slice::x86_64, Slice::arm64}))
        .file("Contents/Resources/swapped", Bytes{0xBE, 0xBA, 0xFE, 0xCA, 1, 0, 0, 0})
        .file("Contents/Zz", thinMachO(Slice::x86_64));
    const BundleWalk result = walk(volume);
    EXPECT_EQ(result.intelComponents, (Texts{"Contents/Frameworks/Old.framework/Versions/A/Old",
                                             "Contents/PlugIns/B.bundle/Contents/MacOS/B",
                                             "Contents/Resources/readme.txt", "Contents/Zz"}));
    EXPECT_EQ(result.worstStatus, CompatibilityStatus::incompatible);
}

TEST(Components, TheWorstStatusDoesNotDependOnTheOrder) {
    for (const bool worstFirst : {true, false}) {
        VolumeBuilder volume;
        volume.file("/Applications/Foo.app/a", thinMachO(worstFirst ? Slice::ppc : Slice::x86_64));
        volume.file("/Applications/Foo.app/b", thinMachO(worstFirst ? Slice::x86_64 : Slice::ppc));
        EXPECT_EQ(walk(volume, {}).worstStatus, CompatibilityStatus::incompatible);
    }
    VolumeBuilder volume;
    volume.file("/Applications/Foo.app/a", thinMachO(Slice::x86_64));
    EXPECT_EQ(walk(volume, {}).worstStatus, CompatibilityStatus::needsRosetta);
}

TEST(Components, TheMainExecutableIsNoneByWhateverLinkItIsReached) {
    VolumeBuilder volume;
    volume.folder("/real").link("/Applications", "/real");
    volume.file("/real/Foo.app/Contents/Real/Foo", thinMachO(Slice::x86_64));
    volume.link("/real/Foo.app/Contents/MacOS", "Real");
    EXPECT_TRUE(walk(volume).intelComponents.empty());

    // A second name for the same file is left behind by itself.
    std::filesystem::create_hard_link(volume.hostPath("/real/Foo.app/Contents/Real/Foo"),
                                      volume.hostPath("/real/Foo.app/Contents/Helper"));
    EXPECT_EQ(walk(volume).intelComponents, Texts{"Contents/Helper"});
}

TEST(Components, SizesOfVisibleRegularFilesAreSummedAndNothingElse) {
    VolumeBuilder volume;
    volume.file("/big", Bytes{}, 1 << 20);
    volume.bundle(bundle.bytes())
        .file("Contents/a", Bytes(100), 5'000'000'000)
        .file("Contents/empty", Bytes{})
        .file("Contents/deep/er/b", Bytes(23))
        .file("Contents/.c", Bytes(1000))
        .link("Contents/link", "/big");
    volume.fifo((bundle / "Contents/fifo").bytes()).socket((bundle / "Contents/socket").bytes());
    EXPECT_EQ(walk(volume).sizeOnDisk, 5'000'000'023);
}

TEST(Components, AfterFourThousandMachOFilesOnlySizesAreAsked) {
    VolumeBuilder volume;
    const Bytes intel = thinMachO(Slice::x86_64);
    const Bytes native = thinMachO(Slice::arm64);
    // In the order of the walk: a/… 1 to 3999, then b, c/one, and d behind the limit.
    for (int i = 0; i < 3998; ++i)
        volume.file("/Applications/Foo.app/a/" + std::to_string(i), native);
    volume.file("/Applications/Foo.app/a/script", "#!/bin/sh");
    volume.file("/Applications/Foo.app/b", intel);
    volume.file("/Applications/Foo.app/c/one", intel);
    volume.file("/Applications/Foo.app/c/two", intel);
    volume.file("/Applications/Foo.app/d", thinMachO(Slice::i386));
    const BundleWalk result = walk(volume);
    EXPECT_EQ(result.intelComponents, (Texts{"b", "c/one"}));
    EXPECT_EQ(result.worstStatus, CompatibilityStatus::needsRosetta);
    EXPECT_EQ(result.sizeOnDisk,
              static_cast<std::int64_t>(3998 * native.size() + 9 + 3 * intel.size() +
                                        thinMachO(Slice::i386).size()));
}

TEST(Components, ARelativePathHasNoSlashesAtItsEnds) {
    EXPECT_EQ(relativeComponentPath(bundle / "Contents/x", bundle), "Contents/x");
    EXPECT_EQ(relativeComponentPath(Path("/elsewhere/x"), bundle), "x");
}

} // namespace
} // namespace veridane
