#include "scan/MachOInspector.h"

#include "platform/MachOFormat.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace veridane::MachOInspector {
namespace {

using namespace macho;

constexpr std::size_t thinHeaderSize = 12; // as much of it as is looked at

struct Processor {
    std::uint32_t type;
    CPUArch architecture;
};
constexpr Processor processors[] = {
    {0x00000007, CPUArch::i386},   {0x0000000C, CPUArch::arm},   {0x00000012, CPUArch::ppc},
    {0x01000007, CPUArch::x86_64}, {0x01000012, CPUArch::ppc64}, {cpuTypeArm64, CPUArch::arm64},
};

// 32-bit and 64-bit magics differ in the lowest bit alone.
constexpr std::uint32_t withoutLowestBit(std::uint32_t magic) {
    return magic & ~std::uint32_t{1};
}

CPUArch architectureOf(std::uint32_t type, std::uint32_t subtype) {
    const auto* known = std::ranges::find(processors, type, &Processor::type);
    if (known == std::end(processors))
        return CPUArch::unknown;
    if (type == cpuTypeArm64 && (subtype & cpuSubtypeMask) == cpuSubtypeArm64e)
        return CPUArch::arm64e;
    return known->architecture;
}

ArchitectureReport inspectUniversal(ByteView header) {
    const std::uint32_t count = header.bigEndian32(4);
    if (count == 0 || count > maxTableEntries)
        return emptyReport;
    const std::uint64_t entrySize = tableEntrySize(header.bigEndian32(0));
    ArchitectureReport report;
    for (std::uint64_t i = 0; i < count; ++i) {
        // A cut-off table: the slices that it still names are there all the same.
        const auto entry = header.slice(universalHeaderSize + i * entrySize, entrySize);
        if (!entry)
            break;
        const CPUArch architecture = architectureOf(entry->bigEndian32(0), entry->bigEndian32(4));
        if (std::ranges::find(report.architectures, architecture) == report.architectures.end())
            report.architectures.push_back(architecture);
    }
    report.isMachO = !report.architectures.empty();
    return report;
}

ArchitectureReport inspectThin(ByteView header) {
    const auto fields = header.slice(0, thinHeaderSize);
    if (!fields)
        return emptyReport;
    const bool isBigEndian = withoutLowestBit(fields->bigEndian32(0)) == thinMagic;
    const auto word = [&](std::uint64_t offset) {
        return isBigEndian ? fields->bigEndian32(offset) : fields->littleEndian32(offset);
    };
    return {{architectureOf(word(4), word(8))}, true};
}

} // namespace

bool isMachOFile(ByteView header) {
    if (header.size() < 4)
        return false;
    const std::uint32_t big = withoutLowestBit(header.bigEndian32(0));
    const std::uint32_t little = withoutLowestBit(header.littleEndian32(0));
    return big == universalMagic || little == universalMagic || big == thinMagic ||
           little == thinMagic;
}

ArchitectureReport inspect(ByteView header) {
    if (header.size() < 4)
        return emptyReport;
    const std::uint32_t big = withoutLowestBit(header.bigEndian32(0));
    const std::uint32_t little = withoutLowestBit(header.littleEndian32(0));
    if (big == universalMagic)
        return inspectUniversal(header);
    if (big == thinMagic || little == thinMagic)
        return inspectThin(header);
    return emptyReport;
}

bool isMachOFile(const FileSystem& files, const Path& path) {
    const auto file = files.open(path);
    std::array<std::uint8_t, 4> magic{};
    return file && isMachOFile(file->read(0, magic));
}

ArchitectureReport inspect(const FileSystem& files, const Path& path) {
    const auto file = files.open(path);
    if (!file)
        return emptyReport;
    std::array<std::uint8_t, maxHeaderSize> header{};
    return inspect(file->read(0, header));
}

} // namespace veridane::MachOInspector
