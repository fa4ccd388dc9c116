#pragma once

#include <cstdint>

/// The numbers of the Mach-O and universal forms (mach-o/loader.h, mach-o/fat.h) that more than one
/// reader needs. Words are given as they read in the byte order of the file.
namespace veridane::macho {

inline constexpr std::uint32_t universalMagic = 0xCAFEBABE;     // table entries of 20 bytes
inline constexpr std::uint32_t wideUniversalMagic = 0xCAFEBABF; // and of 32, with 64-bit offsets
inline constexpr std::uint32_t thinMagic = 0xFEEDFACE;          // 32-bit code
inline constexpr std::uint32_t wideThinMagic = 0xFEEDFACF;      // 64-bit code

inline constexpr std::uint32_t universalHeaderSize = 8; // bytes in front of the table
constexpr std::uint64_t tableEntrySize(std::uint32_t magic) {
    return magic == wideUniversalMagic ? 32 : 20;
}

/// Real files have up to six. A Java class file begins with the universal magic too, and its
/// version stands where the number of entries would be: those of Java 20 and later exceed this
/// limit.
inline constexpr std::uint32_t maxTableEntries = 63;

inline constexpr std::uint32_t cpuTypeArm64 = 0x0100000C;
inline constexpr std::uint32_t cpuSubtypeArm64e = 2;
inline constexpr std::uint32_t cpuSubtypeMask = 0x00FFFFFF; // above it stand capability flags

} // namespace veridane::macho
