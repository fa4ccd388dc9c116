#pragma once

#include "model/ArchitectureReport.h"
#include "platform/ByteView.h"
#include "platform/FileSystem.h"
#include "platform/MachOFormat.h"

#include <cstddef>

/// For which processors a file holds code. Looks at header bytes only: the magic, the universal
/// table, CPU type and subtype. Formats: Mach-O (mach_header, mach_header_64) and universal
/// (fat_header with fat_arch or fat_arch_64). Safe on any thread.
namespace veridane::MachOInspector {

/// The most bytes that `inspect` looks at.
inline constexpr std::size_t maxHeaderSize =
    macho::universalHeaderSize +
    macho::maxTableEntries * macho::tableEntrySize(macho::wideUniversalMagic);

/// Whether the bytes begin like a Mach-O or universal file, in either byte order.
[[nodiscard]] bool isMachOFile(ByteView header);

/// The report of a file whose first bytes are given; `header` has `maxHeaderSize` bytes unless the
/// file is shorter. A table that is cut off gives the entries that are whole; everything that
/// cannot be read gives the empty report.
[[nodiscard]] ArchitectureReport inspect(ByteView header);

/// The same for a file on the volume, links followed. What is missing or no regular file is no
/// Mach-O file.
[[nodiscard]] bool isMachOFile(const FileSystem& files, const Path& file);
[[nodiscard]] ArchitectureReport inspect(const FileSystem& files, const Path& file);

} // namespace veridane::MachOInspector
