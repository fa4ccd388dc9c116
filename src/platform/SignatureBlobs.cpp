#include "platform/SignatureBlobs.h"

#include "platform/CmsSigner.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace veridane {
namespace {

constexpr std::uint32_t superblobMagic = 0xFADE0CC0, codeDirectoryMagic = 0xFADE0C02,
                        cmsWrapperMagic = 0xFADE0B01;
constexpr std::uint32_t codeDirectorySlot = 0, firstAlternateSlot = 0x1000,
                        lastAlternateSlot = 0x1004, cmsSlot = 0x10000;
constexpr std::uint64_t blobHeaderSize = 8; // magic and length, which counts these 8 as well
constexpr std::uint32_t versionWithTeam = 0x20200;

constexpr std::uint32_t maxBlobs = 256;       // real superblobs have up to ten
constexpr std::uint64_t maxTextSize = 1024;   // bytes of an identifier with its end
constexpr std::uint64_t maxCmsSize = 1 << 20; // a real one has about 9 KB
// The page hashes of a large program make a signature of a megabyte, of which only a few hundred
// bytes and the CMS are needed. Up to this size one read is cheaper than several.
constexpr std::uint64_t readWholeSize = 32768;

using Bytes = std::vector<std::uint8_t>;

/// The blob at `offset`, as long as it says itself; nothing if it is of another kind or reaches
/// beyond the end.
std::optional<ByteSource> blobAt(const ByteSource& source, std::uint64_t offset,
                                 std::uint32_t magic) {
    Bytes storage;
    const auto header = source.read(offset, blobHeaderSize, storage);
    if (!header || header->bigEndian32(0) != magic)
        return std::nullopt;
    return source.slice(offset, header->bigEndian32(4));
}

/// The text at `offset`, up to the zero byte that must end it. An offset of 0 means that there is
/// none.
std::optional<std::string> textAt(const ByteSource& blob, std::uint64_t offset) {
    if (offset == 0 || offset >= blob.size())
        return std::nullopt;
    Bytes storage;
    const auto bytes = blob.read(offset, std::min(blob.size() - offset, maxTextSize), storage);
    const std::string_view text = bytes ? bytes->text() : std::string_view();
    const std::size_t end = text.find('\0');
    if (end == std::string_view::npos)
        return std::nullopt;
    return text::validUtf8(text.substr(0, end));
}

CodeSignature readCodeDirectory(const ByteSource& blob) {
    constexpr std::uint64_t headerSize = 52; // up to the team's offset
    Bytes storage;
    const ByteView header = blob.readStart(headerSize, storage);
    CodeSignature signature;
    signature.hasIdentifier = textAt(blob, header.bigEndian32(20)).has_value();
    if (header.bigEndian32(8) >= versionWithTeam)
        signature.teamIdentifier = textAt(blob, header.bigEndian32(48));
    return signature;
}

std::optional<std::string> summaryOf(const ByteSource& cms) {
    Bytes storage;
    if (cms.size() == 0 || cms.size() > maxCmsSize)
        return std::nullopt;
    const auto bytes = cms.read(0, cms.size(), storage);
    return bytes ? signerSubjectSummary(*bytes) : std::nullopt;
}

std::optional<std::string> summaryOfWrapped(const ByteSource& wrapper) {
    if (wrapper.size() < blobHeaderSize)
        return std::nullopt;
    return summaryOf(*wrapper.slice(blobHeaderSize, wrapper.size() - blobHeaderSize));
}

std::optional<CodeSignature> parseSuperblob(const ByteSource& superblob) {
    constexpr std::uint64_t indexOffset = 12, entrySize = 8;
    Bytes storage;
    const ByteView index = superblob.readStart(indexOffset + maxBlobs * entrySize, storage);
    const std::uint32_t count = std::min(index.bigEndian32(8), maxBlobs);

    std::optional<ByteSource> codeDirectory, alternate, cms;
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto entry = index.slice(indexOffset + i * entrySize, entrySize);
        if (!entry)
            break;
        const std::uint32_t slot = entry->bigEndian32(0), offset = entry->bigEndian32(4);
        if (slot == codeDirectorySlot && !codeDirectory)
            codeDirectory = blobAt(superblob, offset, codeDirectoryMagic);
        else if (slot >= firstAlternateSlot && slot <= lastAlternateSlot && !alternate)
            alternate = blobAt(superblob, offset, codeDirectoryMagic);
        else if (slot == cmsSlot && !cms)
            cms = blobAt(superblob, offset, cmsWrapperMagic);
    }
    if (!codeDirectory)
        codeDirectory = alternate;
    if (!codeDirectory)
        return std::nullopt;
    CodeSignature signature = readCodeDirectory(*codeDirectory);
    if (cms)
        signature.leafSubjectSummary = summaryOfWrapped(*cms);
    return signature;
}

std::optional<CodeSignature> parseBlobs(const ByteSource& signature) {
    if (const auto superblob = blobAt(signature, 0, superblobMagic))
        return parseSuperblob(*superblob);
    if (const auto codeDirectory = blobAt(signature, 0, codeDirectoryMagic))
        return readCodeDirectory(*codeDirectory);
    return std::nullopt;
}

} // namespace

std::optional<CodeSignature> parseEmbeddedSignature(const ByteSource& signature) {
    if (signature.size() > readWholeSize)
        return parseBlobs(signature);
    Bytes storage;
    return parseBlobs(ByteSource(signature.readStart(readWholeSize, storage)));
}

std::optional<CodeSignature> parseDetachedSignature(const ByteSource& codeDirectory,
                                                    const ByteSource& cms) {
    const auto blob = blobAt(codeDirectory, 0, codeDirectoryMagic);
    if (!blob)
        return std::nullopt;
    CodeSignature signature = readCodeDirectory(*blob);
    const auto wrapper = blobAt(cms, 0, cmsWrapperMagic);
    signature.leafSubjectSummary = wrapper ? summaryOfWrapped(*wrapper) : summaryOf(cms);
    return signature;
}

} // namespace veridane
