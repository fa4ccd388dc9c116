#include "scan/MachOInspector.h"
#include "support/VolumeTest.h"

namespace veridane::test {
namespace {

Bytes universalHeader(std::uint32_t count, std::uint32_t entriesWritten) {
    Bytes bytes = bigEndian({0xCAFEBABE, count});
    for (std::uint32_t i = 0; i < entriesWritten; ++i)
        append(bytes, bigEndian({0x01000007, 0x80000000 + i, 4096, 0, 12}));
    return bytes;
}

Bytes cutTo(std::size_t size, const Bytes& bytes) {
    return Bytes(bytes.data(), bytes.data() + size);
}

using MachO = VolumeTest;

TEST_F(MachO, AHeaderTellsTheArchitecturesInFileOrder) {
    using enum Slice;
    using Arch = CPUArch;
    const struct {
        const char* what;
        Bytes file;
        std::vector<CPUArch> architectures;
        bool isMachOFile = true;
    } cases[] = {
        {"thin arm64e, by the low bits of its subtype", thinMachO(arm64e), {Arch::arm64e}},
        {"thin big-endian", thinMachO(ppc64), {Arch::ppc64}},
        {"a processor of the future", thinMachO(unlisted), {Arch::unknown}},
        {"Intel first", universalMachO({x86_64, arm64}), {Arch::x86_64, Arch::arm64}},
        {"64-bit offsets", universalMachO({ppc, arm}, true), {Arch::ppc, Arch::arm}},
        {"two flavours of one processor", universalHeader(2, 2), {Arch::x86_64}},
        {"as many entries as are believed", universalHeader(63, 63), {Arch::x86_64}},
        {"one entry more", universalHeader(64, 64), {}},
        {"no entries", universalHeader(0, 2), {}},
        {"cut off in the first entry", cutTo(27, universalHeader(1, 1)), {}},
        {"cut off in the second", cutTo(47, universalMachO({i386, ppc})), {Arch::i386}},
        {"the other byte order", bigEndian({0xBEBAFECA, 0x01000000}), {}},
        {"thin and cut off", cutTo(11, thinMachO(x86_64)), {}},
        {"a script", {'#', '!', '/', 'b', 'i', 'n', '/', 's', 'h'}, {}, false},
        {"three bytes", {0xCA, 0xFE, 0xBA}, {}, false},
    };
    for (const auto& [what, file, architectures, isMachOFile] : cases) {
        const ArchitectureReport expected{architectures, !architectures.empty()};
        EXPECT_EQ(MachOInspector::isMachOFile(ByteView(file)), isMachOFile) << what;
        EXPECT_EQ(MachOInspector::inspect(ByteView(file)), expected) << what;
        volume.file("/file", file);
        EXPECT_EQ(MachOInspector::isMachOFile(volume.files(), Path("/file")), isMachOFile);
        EXPECT_EQ(MachOInspector::inspect(volume.files(), Path("/file")), expected) << what;
    }
}

TEST_F(MachO, WhatCannotBeReadIsNoMachOFileAndNeverBlocks) {
    volume.folder("/folder").fifo("/fifo").socket("/socket").link("/loop", "loop");
    volume.file("/real", thinMachO(Slice::arm64)).link("/link", "/real");
    const FileSystem files = volume.files();
    for (const char* path : {"/folder", "/fifo", "/socket", "/loop", "/missing", "/real/below"}) {
        EXPECT_FALSE(MachOInspector::isMachOFile(files, Path(path))) << path;
        EXPECT_EQ(MachOInspector::inspect(files, Path(path)), emptyReport) << path;
    }
    EXPECT_TRUE(MachOInspector::inspect(files, Path("/link")).isMachO);
}

} // namespace
} // namespace veridane::test
