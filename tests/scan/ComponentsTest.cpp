#include "scan/BundleWalk.h"
#include "support/VolumeTest.h"

namespace veridane::test {
namespace {

const Path bundle("/Applications/Foo.app");

BundleWalk walk(const VolumeBuilder& volume) {
    return walkBundle(volume.files(), bundle, bundle / "Contents/MacOS/Foo");
}

using Components = VolumeTest;

TEST_F(Components, FilesThatCannotRunNativelyAreListedByContentInTheOrderOfTheWalk) {
    volume.bundle(bundle.bytes())
        .executable("Foo", {Slice::x86_64})
        .framework("Old", thinMachO(Slice::x86_64))
        .file("Contents/PlugIns/B.bundle/Contents/MacOS/B", thinMachO(Slice::i386))
        .file("Contents/PlugIns/B", thinMachO(Slice::arm64))
        .file("Contents/Resources/readme.txt", thinMachO(Slice::unlisted))
        .file("Contents/Resources/.hidden.dylib", thinMachO(Slice::x86_64))
        .file("Contents/Resources/both", machO({Slice::x86_64, Slice::arm64}))
        .file("Contents/Resources/swapped", Bytes{0xBE, 0xBA, 0xFE, 0xCA, 1, 0, 0, 0})
        .file("Contents/Zz", thinMachO(Slice::x86_64));
    const BundleWalk result = walk(volume);
    EXPECT_EQ(result.intelComponents, (Texts{"Contents/Frameworks/Old.framework/Versions/A/Old",
                                             "Contents/PlugIns/B.bundle/Contents/MacOS/B",
                                             "Contents/Resources/readme.txt", "Contents/Zz"}));
    EXPECT_EQ(result.worstStatus, CompatibilityStatus::incompatible);
}

TEST_F(Components, TheMainExecutableIsNoneByWhateverLinkItIsReached) {
    volume.folder("/real").link("/Applications", "/real");
    volume.file("/real/Foo.app/Contents/Real/Foo", thinMachO(Slice::x86_64));
    volume.link("/real/Foo.app/Contents/MacOS", "Real");
    EXPECT_TRUE(walk(volume).intelComponents.empty());

    // A second name for the same file is left behind by itself.
    std::filesystem::create_hard_link(volume.hostPath("/real/Foo.app/Contents/Real/Foo"),
                                      volume.hostPath("/real/Foo.app/Contents/Helper"));
    EXPECT_EQ(walk(volume).intelComponents, Texts{"Contents/Helper"});
}

TEST_F(Components, SizesOfVisibleRegularFilesAreSummedAndNothingElse) {
    volume.file("/big", Bytes{}, 1 << 20);
    const std::string folder = bundle.bytes() + '/';
    volume.file(folder + "a", Bytes(100), 5'000'000'000).file(folder + "deep/er/b", Bytes(23));
    volume.file(folder + ".c", Bytes(1000)).link(folder + "link", "/big");
    volume.fifo(folder + "fifo").socket(folder + "socket");
    EXPECT_EQ(walk(volume).sizeOnDisk, 5'000'000'023);
}

TEST_F(Components, OfPathsBeyondAllMeasureTheNameIsListed) {
    const std::string folder(250, 'd'), part = "/part";
    volume.file(part, thinMachO(Slice::x86_64)).tower(bundle.bytes(), 30, folder, part);
    EXPECT_EQ(walk(volume).intelComponents.size(), 3U);
    EXPECT_EQ(walk(volume).intelComponents[1], "part-20"); // beyond what any path can say
    const std::string second = folder + '/' + folder + '/';
    for (int i = 0; i < 2500; ++i)
        volume.hardLink(bundle.bytes() + '/' + second + std::to_string(i), part);
    const Texts parts = walk(volume).intelComponents;
    ASSERT_EQ(parts.size(), 2503U);
    EXPECT_EQ(parts[0], second + "0");
    EXPECT_EQ(parts[2499], "999"); // and a list of such paths beyond what anybody can read
}

TEST_F(Components, AfterFourThousandMachOFilesOnlySizesAreAsked) {
    const Bytes intel = thinMachO(Slice::x86_64), native = thinMachO(Slice::arm64);
    for (int i = 0; i < 3999; ++i)
        volume.file("/Applications/Foo.app/a/" + std::to_string(i), native);
    for (const char* name : {"last", "one more"})
        volume.file((bundle / name).bytes(), intel);
    volume.file((bundle / "a/script").bytes(), "#!/bin/sh");
    const BundleWalk result = walk(volume);
    EXPECT_EQ(result.intelComponents, Texts{"last"});
    EXPECT_EQ(result.sizeOnDisk, 3999 * std::ssize(native) + 2 * std::ssize(intel) + 9);
}

} // namespace
} // namespace veridane::test
