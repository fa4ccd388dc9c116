#include "support/MachOBuilder.h"

namespace veridane::test {

namespace {

/// What tells one architecture's header from another's.
struct SliceForm {
    std::uint32_t cpuType, cpuSubtype;
    bool is64Bit = false, isBigEndian = false;
};

const SliceForm& formOf(Slice slice) {
    static constexpr SliceForm forms[] = {
        {0x0100000C, 0, true},          // arm64
        {0x0100000C, 0x80000002, true}, // arm64e
        {0x01000007, 3, true},          // x86_64
        {7, 3},                         // i386
        {18, 0, false, true},           // ppc
        {0x01000012, 0, true, true},    // ppc64
        {12, 9},                        // arm
        {0x18, 0},                      // an architecture that no Mac was sold with
    };
    return forms[static_cast<std::size_t>(slice)];
}

std::size_t roundedUp(std::size_t value, std::size_t unit) {
    return (value + unit - 1) / unit * unit;
}

} // namespace

Bytes thinMachO(Slice slice, const Bytes& signature) {
    constexpr std::size_t uuid = 0x1B, uuidSize = 24, codeSignature = 0x1D, codeSignatureSize = 16;
    const SliceForm& form = formOf(slice);
    const std::size_t commandCount = signature.empty() ? 1 : 2;
    const std::size_t commandSize = uuidSize + (signature.empty() ? 0 : codeSignatureSize);
    // A signature begins at a multiple of 16.
    const std::size_t headSize = roundedUp((form.is64Bit ? 32 : 28) + commandSize, 16);

    // An executable without undefined symbols, for dyld, with two-level names, at any address.
    Bytes words = bigEndian({form.is64Bit ? 0xFEEDFACF : 0xFEEDFACE, form.cpuType, form.cpuSubtype,
                             2, commandCount, commandSize, 0x00200085});
    if (form.is64Bit)
        append(words, bigEndian({0}));
    append(words, bigEndian({uuid, uuidSize, 1, 2, 3, 4}));
    if (!signature.empty())
        append(words, bigEndian({codeSignature, codeSignatureSize, headSize, signature.size()}));

    Bytes file;
    for (auto word = words.begin(); word != words.end(); word += 4)
        append(file, form.isBigEndian ? Bytes(word, word + 4)
                                      : Bytes{word[3], word[2], word[1], word[0]});
    file.resize(headSize);
    append(file, signature);
    return file;
}

Bytes universalMachO(const std::vector<UniversalPart>& parts, bool wide) {
    constexpr std::size_t alignment = 14, page = 1 << alignment;
    Bytes table = bigEndian({wide ? 0xCAFEBABF : 0xCAFEBABE, parts.size()}), contents;
    for (const auto& [slice, file] : parts) {
        // All tables are shorter than a page.
        contents.resize(roundedUp(contents.size(), page));
        const std::size_t offset = page + contents.size();
        append(table, bigEndian({formOf(slice).cpuType, formOf(slice).cpuSubtype}));
        append(table, wide ? bigEndian({0, offset, 0, file.size(), alignment, 0})
                           : bigEndian({offset, file.size(), alignment}));
        append(contents, file);
    }
    table.resize(page);
    append(table, contents);
    return table;
}

Bytes machO(const std::vector<Slice>& slices, const Bytes& signature) {
    std::vector<UniversalPart> parts;
    for (const Slice slice : slices)
        parts.push_back({slice, thinMachO(slice, signature)});
    return parts.size() == 1 ? parts.front().file : universalMachO(parts);
}

} // namespace veridane::test
