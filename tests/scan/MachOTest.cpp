#include "scan/MachOInspector.h"
#include "support/MachOBuilder.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

using namespace test;
using enum CPUArch;

Bytes bigEndian(std::initializer_list<std::uint32_t> words) {
    Bytes bytes;
    for (const std::uint32_t word : words)
        appendBigEndian32(bytes, word);
    return bytes;
}

Bytes universalHeader(std::uint32_t count, std::uint32_t entriesWritten) {
    Bytes bytes = bigEndian({0xCAFEBABE, count});
    for (std::uint32_t i = 0; i < entriesWritten; ++i) {
        for (const std::uint32_t word : {0x01000007u, 0x80000000u + i, 4096u, 0u, 12u})
            appendBigEndian32(bytes, word);
    }
    return bytes;
}

Bytes cutTo(Bytes bytes, std::size_t size) {
    bytes.resize(size);
    return bytes;
}

TEST(MachO, AHeaderTellsTheArchitecturesInFileOrder) {
    const Bytes twoOfFive =
        cutTo(universalMachO({Slice::i386, Slice::ppc, Slice::x86_64, Slice::arm64, Slice::arm64e}),
              8 + 2 * 20 + 19);
    const struct {
        const char* what;
        Bytes file;
        bool isMachOFile;
        std::vector<CPUArch> architectures;
    } cases[] = {
        {"thin Intel", thinMachO(Slice::x86_64), true, {x86_64}},
        {"thin arm64e, by the low bits of its subtype", thinMachO(Slice::arm64e), true, {arm64e}},
        {"thin big-endian", thinMachO(Slice::ppc64), true, {ppc64}},
        {"32-bit little-endian", thinMachO(Slice::i386), true, {i386}},
        {"a processor of the future", thinMachO(Slice::unlisted), true, {unknown}},
        {"Intel first", universalMachO({Slice::x86_64, Slice::arm64}), true, {x86_64, arm64}},
        {"Apple first", universalMachO({Slice::arm64, Slice::x86_64}), true, {arm64, x86_64}},
        {"both Apple flavours",
         universalMachO({Slice::arm64, Slice::arm64e}),
         true,
         {arm64, arm64e}},
        {"64-bit offsets",
         universalMachO({{Slice::ppc, thinMachO(Slice::ppc)}, {Slice::arm, thinMachO(Slice::arm)}},
                        true),
         true,
         {ppc, arm}},
        {"two flavours of one processor", universalHeader(2, 2), true, {x86_64}},
        {"as many entries as are believed", universalHeader(63, 63), true, {x86_64}},
        {"one entry more", universalHeader(64, 64), true, {}},
        {"a count with the top bit set", universalHeader(0x80000001, 2), true, {}},
        {"no entries", universalHeader(0, 2), true, {}},
        {"no count", bigEndian({0xCAFEBABE}), true, {}},
        {"cut off in the first entry", cutTo(universalHeader(1, 1), 27), true, {}},
        {"cut off in the third entry", twoOfFive, true, {i386, ppc}},
        {"the other byte order", bigEndian({0xBEBAFECA, 0x01000000}), true, {}},
        {"thin and cut off", cutTo(thinMachO(Slice::x86_64), 11), true, {}},
        {"a script", {'#', '!', '/', 'b', 'i', 'n', '/', 's', 'h'}, false, {}},
        {"three bytes", {0xCA, 0xFE, 0xBA}, false, {}},
        {"nothing", {}, false, {}},
    };
    VolumeBuilder volume;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const ArchitectureReport expected{c.architectures, !c.architectures.empty()};
        EXPECT_EQ(MachOInspector::isMachOFile(ByteView(c.file)), c.isMachOFile);
        EXPECT_EQ(MachOInspector::inspect(ByteView(c.file)), expected);
        volume.file("/file", c.file);
        EXPECT_EQ(MachOInspector::isMachOFile(volume.files(), Path("/file")), c.isMachOFile);
        EXPECT_EQ(MachOInspector::inspect(volume.files(), Path("/file")), expected);
    }
}

TEST(MachO, WhatCannotBeReadIsNoMachOFileAndNeverBlocks) {
    VolumeBuilder volume;
    volume.folder("/folder").fifo("/fifo").socket("/socket").link("/loop", "loop");
    volume.file("/real", thinMachO(Slice::arm64)).link("/link", "/real");
    const FileSystem files = volume.files();
    for (const char* path : {"/folder", "/fifo", "/socket", "/loop", "/missing", "/real/below"}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(MachOInspector::isMachOFile(files, Path(path)));
        EXPECT_EQ(MachOInspector::inspect(files, Path(path)), emptyReport);
    }
    EXPECT_TRUE(MachOInspector::inspect(files, Path("/link")).isMachO);
}

} // namespace
} // namespace veridane
