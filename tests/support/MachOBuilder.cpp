#include "support/MachOBuilder.h"

#include <algorithm>
#include <cassert>
#include <string_view>
#include <utility>

namespace veridane::test {

namespace {

constexpr std::uint32_t executableFile = 2;
constexpr std::uint32_t segment = 0x01, uuid = 0x1B, codeSignature = 0x1D, segment64 = 0x19;
constexpr std::uint32_t readable = 1, executable = 4;
constexpr std::uint32_t uuidSize = 24, codeSignatureSize = 16;

/// What tells one architecture's header from another's.
struct SliceForm {
    std::uint32_t cpuType, cpuSubtype;
    bool is64Bit, isBigEndian;
    std::uint32_t alignment; // within a universal file, as a power of two
};

SliceForm formOf(Slice slice) {
    switch (slice) {
    case Slice::arm64:
        return {0x0100000C, 0, true, false, 14};
    case Slice::arm64e:
        return {0x0100000C, 0x80000002, true, false, 14};
    case Slice::x86_64:
        return {0x01000007, 3, true, false, 12};
    case Slice::i386:
        return {7, 3, false, false, 12};
    case Slice::ppc:
        return {18, 0, false, true, 12};
    case Slice::ppc64:
        return {0x01000012, 0, true, true, 12};
    case Slice::arm:
        return {12, 9, false, false, 12};
    case Slice::unlisted: // an architecture that no Mac was sold with
        return {0x18, 0, false, false, 12};
    }
    assert(false && "a slice without a form");
    return {};
}

/// Appends the parts of one thin file in its own byte order.
class ThinWriter {
public:
    explicit ThinWriter(const SliceForm& form) : m_form(form) {}

    void word(std::uint32_t value) {
        if (m_form.isBigEndian)
            appendBigEndian32(m_bytes, value);
        else
            appendLittleEndian32(m_bytes, value);
    }

    /// An address, offset or size: 64 bits wide only where the architecture is.
    void wide(std::uint32_t value) {
        if (m_form.is64Bit && m_form.isBigEndian)
            word(0);
        word(value);
        if (m_form.is64Bit && !m_form.isBigEndian)
            word(0);
    }

    void name(std::string_view name) {
        m_bytes.insert(m_bytes.end(), name.begin(), name.end());
        m_bytes.resize(m_bytes.size() + 16 - name.size());
    }

    [[nodiscard]] std::uint32_t segmentSize() const { return m_form.is64Bit ? 72 : 56; }

    void segmentCommand(std::string_view segmentName, std::uint32_t address, std::uint32_t offset,
                        std::uint32_t size, std::uint32_t protection) {
        constexpr std::uint32_t page = 1U << 14;
        word(m_form.is64Bit ? segment64 : segment);
        word(segmentSize());
        name(segmentName);
        wide(address);
        wide((size / page + 1) * page);
        wide(offset);
        wide(size);
        word(protection); // at most, and at first
        word(protection);
        word(0); // sections
        word(0); // flags
    }

    Bytes take() { return std::move(m_bytes); }

private:
    SliceForm m_form;
    Bytes m_bytes;
};

} // namespace

void appendBigEndian32(Bytes& bytes, std::uint32_t value) {
    for (const int shift : {24, 16, 8, 0})
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

void appendLittleEndian32(Bytes& bytes, std::uint32_t value) {
    for (const int shift : {0, 8, 16, 24})
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

Bytes thinMachO(Slice slice, const Bytes& signature) {
    const SliceForm form = formOf(slice);
    ThinWriter writer(form);
    const auto signatureSize = static_cast<std::uint32_t>(signature.size());
    const bool isSigned = !signature.empty();
    const std::uint32_t headerSize = form.is64Bit ? 32 : 28;
    const std::uint32_t commandSize =
        2 * writer.segmentSize() + uuidSize + (isSigned ? codeSignatureSize : 0);
    // A signature begins at a multiple of 16; everything in front of it is the text segment.
    const std::uint32_t textSize = (headerSize + commandSize + 15) / 16 * 16;

    writer.word(form.is64Bit ? 0xFEEDFACF : 0xFEEDFACE);
    writer.word(form.cpuType);
    writer.word(form.cpuSubtype);
    writer.word(executableFile);
    writer.word(isSigned ? 4 : 3);
    writer.word(commandSize);
    writer.word(0x00200085); // no undefined symbols, for dyld, two-level names, any address
    if (form.is64Bit)
        writer.word(0);

    writer.segmentCommand("__TEXT", 0x10000, 0, textSize, readable | executable);
    writer.segmentCommand("__LINKEDIT", 0x20000, textSize, signatureSize, readable);
    writer.word(uuid);
    writer.word(uuidSize);
    writer.name("veridane-builder");
    if (isSigned) {
        for (const std::uint32_t value :
             {codeSignature, codeSignatureSize, textSize, signatureSize})
            writer.word(value);
    }

    Bytes file = writer.take();
    file.resize(textSize);
    file.insert(file.end(), signature.begin(), signature.end());
    return file;
}

Bytes universalMachO(const std::vector<UniversalPart>& parts, bool wide) {
    const auto appendOffset = [wide](Bytes& bytes, std::size_t value) {
        if (wide)
            appendBigEndian32(bytes, 0);
        appendBigEndian32(bytes, static_cast<std::uint32_t>(value));
    };

    Bytes table;
    appendBigEndian32(table, wide ? 0xCAFEBABF : 0xCAFEBABE);
    appendBigEndian32(table, static_cast<std::uint32_t>(parts.size()));

    std::size_t end = table.size() + parts.size() * (wide ? 32 : 20);
    Bytes contents(end);
    for (const UniversalPart& part : parts) {
        const SliceForm form = formOf(part.slice);
        const std::size_t page = std::size_t{1} << form.alignment;
        const std::size_t offset = (end + page - 1) / page * page;
        end = offset + part.file.size();
        appendBigEndian32(table, form.cpuType);
        appendBigEndian32(table, form.cpuSubtype);
        appendOffset(table, offset);
        appendOffset(table, part.file.size());
        appendBigEndian32(table, form.alignment);
        if (wide)
            appendBigEndian32(table, 0);
        contents.resize(offset);
        contents.insert(contents.end(), part.file.begin(), part.file.end());
    }
    std::ranges::copy(table, contents.begin());
    return contents;
}

Bytes universalMachO(const std::vector<Slice>& slices) {
    std::vector<UniversalPart> parts;
    for (const Slice slice : slices)
        parts.push_back({slice, thinMachO(slice)});
    return universalMachO(parts);
}

} // namespace veridane::test
