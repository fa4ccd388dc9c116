#include "platform/EmbeddedSignature.h"

#include "platform/MachOFormat.h"

#include <cstdint>
#include <vector>

namespace veridane {
namespace {

using namespace macho;

constexpr std::uint32_t codeSignatureCommand = 0x1D, codeSignatureCommandSize = 16;

constexpr std::uint64_t headSize = 8192;           // holds the load commands of most programs
constexpr std::uint32_t maxCommandBytes = 1 << 20; // the largest programs have about 20,000

using Bytes = std::vector<std::uint8_t>;

bool isUniversal(ByteView head) {
    const std::uint32_t magic = head.bigEndian32(0);
    return magic == universalMagic || magic == wideUniversalMagic;
}

/// Reads the words of a thin file in the byte order that its magic tells.
class ThinWords {
public:
    explicit ThinWords(ByteView head) {
        const std::uint32_t big = head.bigEndian32(0), little = head.littleEndian32(0);
        m_isBigEndian = big == thinMagic || big == wideThinMagic;
        m_isThin = m_isBigEndian || little == thinMagic || little == wideThinMagic;
        m_headerSize = big == wideThinMagic || little == wideThinMagic ? 32 : 28;
    }

    [[nodiscard]] bool isThin() const { return m_isThin; }
    [[nodiscard]] std::uint32_t headerSize() const { return m_headerSize; }
    [[nodiscard]] std::uint32_t word(ByteView bytes, std::uint64_t offset) const {
        return m_isBigEndian ? bytes.bigEndian32(offset) : bytes.littleEndian32(offset);
    }

private:
    bool m_isBigEndian = false;
    bool m_isThin = false;
    std::uint32_t m_headerSize = 0;
};

/// How gladly an Apple-silicon Mac runs a slice; 0 for one that it would not choose.
int preference(ByteView entry) {
    if (entry.bigEndian32(0) != cpuTypeArm64)
        return 0;
    return (entry.bigEndian32(4) & cpuSubtypeMask) == cpuSubtypeArm64e ? 2 : 1;
}

std::optional<ByteSource> preferredSlice(const ByteSource& file, ByteView head) {
    const std::uint32_t magic = head.bigEndian32(0);
    const std::uint64_t entrySize = tableEntrySize(magic);
    const std::uint32_t count = head.bigEndian32(4);
    if (count > maxTableEntries)
        return std::nullopt;
    std::optional<ByteView> best;
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto entry = head.slice(universalHeaderSize + i * entrySize, entrySize);
        if (!entry)
            break;
        if (!best || preference(*entry) > preference(*best))
            best = entry;
    }
    if (!best)
        return std::nullopt;
    if (magic == universalMagic)
        return file.slice(best->bigEndian32(8), best->bigEndian32(12));
    const auto wideWord = [&best](std::uint64_t offset) {
        return std::uint64_t{best->bigEndian32(offset)} << 32 | best->bigEndian32(offset + 4);
    };
    return file.slice(wideWord(8), wideWord(16));
}

std::optional<ByteSource> signatureOfThinFile(const ByteSource& file, ByteView head) {
    // The slice of a universal file may be a static library, or begin with a universal header
    // again: neither has load commands.
    const ThinWords words(head);
    if (!words.isThin())
        return std::nullopt;
    const std::uint32_t count = words.word(head, 16), size = words.word(head, 20);
    if (size > maxCommandBytes)
        return std::nullopt;
    Bytes storage;
    auto commands = head.slice(words.headerSize(), size);
    if (!commands)
        commands = file.read(words.headerSize(), size, storage);
    if (!commands)
        return std::nullopt;

    ByteView rest = *commands;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t commandSize = words.word(rest, 4);
        const auto command = rest.slice(0, commandSize);
        if (!command || commandSize < 8)
            return std::nullopt;
        if (words.word(*command, 0) == codeSignatureCommand &&
            commandSize >= codeSignatureCommandSize)
            return file.slice(words.word(*command, 8), words.word(*command, 12));
        rest = rest.from(commandSize);
    }
    return std::nullopt;
}

} // namespace

bool canHoldEmbeddedSignature(const ByteSource& file) {
    Bytes storage;
    const ByteView head = file.readStart(4, storage);
    return isUniversal(head) || ThinWords(head).isThin();
}

std::optional<ByteSource> embeddedSignature(const ByteSource& file) {
    Bytes storage;
    const ByteView head = file.readStart(headSize, storage);
    if (!isUniversal(head))
        return signatureOfThinFile(file, head);
    const auto slice = preferredSlice(file, head);
    if (!slice)
        return std::nullopt;
    return signatureOfThinFile(*slice, slice->readStart(headSize, storage));
}

} // namespace veridane
