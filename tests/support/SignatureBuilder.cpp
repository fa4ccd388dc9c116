#include "support/SignatureBuilder.h"

#include <initializer_list>
#include <iterator>
#include <utility>

namespace veridane::test {
namespace {

constexpr std::uint8_t bitString = 0x03, octetString = 0x04, utf8String = 0x0C, sequence = 0x30,
                       set = 0x31, context0 = 0xA0, context1 = 0xA1, context3 = 0xA3;

// Whole elements: types, algorithms and numbers.
const Bytes commonName{6, 3, 0x55, 4, 3}, organisation{6, 3, 0x55, 4, 10},
    organisationalUnit{6, 3, 0x55, 4, 11}, subjectKey{6, 3, 0x55, 0x1D, 14},
    email{6, 9, 0x2A, 0x86, 0x48, 0x86, 0xF7, 13, 1, 9, 1},
    userId{6, 10, 9, 0x92, 0x26, 0x89, 0x93, 0xF2, 0x2C, 0x64, 1, 1},
    data{6, 9, 0x2A, 0x86, 0x48, 0x86, 0xF7, 13, 1, 7, 1},
    signedData{6, 9, 0x2A, 0x86, 0x48, 0x86, 0xF7, 13, 1, 7, 2},
    timeStampToken{6, 11, 0x2A, 0x86, 0x48, 0x86, 0xF7, 13, 1, 9, 16, 2, 14},
    rsa{sequence, 13, 6, 9, 0x2A, 0x86, 0x48, 0x86, 0xF7, 13, 1, 1, 1, 5, 0},
    sha256{sequence, 11, 6, 9, 0x60, 0x86, 0x48, 1, 0x65, 3, 4, 2, 1};
const Bytes one{2, 1, 1}, two{2, 1, 2}, serialNumber{2, 4, 0x5E, 0xED, 0x12, 0x34};

Bytes bytesOf(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

/// Writes elements in DER, or in BER with the length of whatever holds others left open.
struct Writer {
    bool isOpen;

    Bytes operator()(std::uint8_t tag, std::initializer_list<Bytes> parts) const {
        Bytes content;
        for (const Bytes& part : parts)
            append(content, part);
        const auto high = static_cast<std::uint8_t>(content.size() >> 8),
                   low = static_cast<std::uint8_t>(content.size());
        Bytes result = high > 0 ? Bytes{tag, 0x82, high, low} : Bytes{tag, 0x81, low};
        if (isOpen && (tag & 0x20) != 0) {
            result = {tag, 0x80};
            append(content, {0, 0});
        } else if (content.size() < 0x80) {
            result = {tag, low};
        }
        append(result, content);
        return result;
    }
};

/// A name of those texts that are there, in the given order.
using NamePart = std::pair<Bytes, std::optional<std::string>>;
Bytes nameOf(const Writer& write, std::initializer_list<NamePart> parts) {
    Bytes sets;
    for (const auto& [type, text] : parts) {
        const Bytes value = text ? write(utf8String, {bytesOf(*text)}) : Bytes();
        append(sets, text ? write(set, {write(sequence, {type, value})}) : Bytes());
    }
    return write(sequence, {sets});
}

/// Its key and its signature are of the usual size and mean nothing.
Bytes certificate(const Writer& write, const Bytes& subject, const Bytes& issuer, Bytes key) {
    const Bytes number = write(2, {Bytes(256, 0x5A)});
    const Bytes publicKey = write(bitString, {{0}, write(sequence, {number, one})});
    const Bytes date = bytesOf("\x17\x0D"
                               "200101000000Z");
    const Bytes identifier = write(octetString, {write(octetString, {key, key})});
    const Bytes extension = write(sequence, {subjectKey, identifier});
    const Bytes body =
        write(sequence, {write(context0, {two}), serialNumber, rsa, issuer,
                         write(sequence, {date, date}), subject, write(sequence, {rsa, publicKey}),
                         write(context3, {write(sequence, {extension})})});
    return write(sequence, {body, rsa, write(bitString, {Bytes(257)})});
}

/// A signature by the leaf, in a chain below an authority of the given name.
Bytes signedCms(const std::string& authority, const Bytes& leaf, const SignatureSpec& spec,
                const Bytes& timeStamp) {
    using enum SignatureSpec::Lengths;
    const Writer inner{spec.lengths == open}, write{spec.lengths != given};
    const Bytes root = nameOf(inner, {{commonName, authority + " Root"}});
    const Bytes middle = nameOf(inner, {{commonName, authority}});
    const Bytes certificates =
        write(context0, {certificate(inner, root, root, {1}), certificate(inner, middle, root, {2}),
                         certificate(inner, leaf, middle, {3})});

    Bytes signer = write(sequence, {middle, serialNumber}), attributes;
    if (spec.signerByKeyIdentifier) // an octet string, which may come in pieces
        signer = spec.lengths == open ? write(context0, {{4, 1, 3}, write(0x24, {{4, 1, 3}})})
                                      : Bytes{0x80, 2, 3, 3};
    if (!timeStamp.empty())
        attributes = write(context1, {write(sequence, {timeStampToken, write(set, {timeStamp})})});
    const Bytes signerInfo =
        write(sequence, {one, signer, sha256, rsa, write(octetString, {Bytes(256)}), attributes});
    const Bytes content = write(sequence, {one, write(set, {sha256}), write(sequence, {data}),
                                           certificates, write(set, {signerInfo})});
    return write(sequence, {signedData, write(context0, {content})});
}

} // namespace

Bytes signatureBlob(std::uint32_t magic, const Bytes& content) {
    Bytes bytes = bigEndian({magic, 8 + content.size()});
    append(bytes, content);
    return bytes;
}

Bytes codeDirectoryFile(const SignatureSpec& spec) {
    constexpr std::size_t headerSize = 88, version = 0x20400, codeSize = 4096;
    constexpr std::size_t sha256WithPagesOf4096 = 0x2002000C;
    const std::string texts = spec.identifier + '\0' + spec.teamIdentifier.value_or("") + '\0';
    const std::size_t team = spec.teamIdentifier ? headerSize + spec.identifier.size() + 1 : 0;
    Bytes content = bigEndian({version, 0, headerSize + texts.size(), headerSize, 0, 1, codeSize,
                               sha256WithPagesOf4096, 0, 0, team});
    content.resize(headerSize - 8); // offsets count from the blob's start
    append(content, Bytes(texts.begin(), texts.end()));
    append(content, Bytes(32, 0xA5)); // the hash of the only page
    return signatureBlob(0xFADE0C02, content);
}

Bytes cmsFile(const SignatureSpec& spec) {
    if (!spec.leafCommonName && !spec.leafOrganisationalUnit && !spec.leafOrganisation &&
        !spec.leafEmail)
        return {};
    const Writer write{spec.lengths == SignatureSpec::Lengths::open};
    const Bytes leaf = nameOf(write, {{userId, "UID1234567"},
                                      {commonName, spec.leafCommonName},
                                      {organisationalUnit, spec.leafOrganisationalUnit},
                                      {organisation, spec.leafOrganisation},
                                      {email, spec.leafEmail}});
    const Bytes server = nameOf(write, {{commonName, "Example Time Stamp Signer"}});
    return signedCms("Example Developer Authority", leaf, spec,
                     spec.withTimeStamp ? signedCms("Example Time Stamping", server, spec, {})
                                        : Bytes());
}

Bytes embeddedSignature(const SignatureSpec& spec) {
    const std::pair<std::uint32_t, Bytes> slots[] = {
        {0, codeDirectoryFile(spec)},
        {2, signatureBlob(0xFADE0C01, Bytes(4))},
        {0x10000, signatureBlob(0xFADE0B01, cmsFile(spec))},
    };
    Bytes index = bigEndian({std::size(slots)}), blobs;
    for (const auto& [slot, blob] : slots) {
        append(index, bigEndian({slot, 12 + std::size(slots) * 8 + blobs.size()}));
        append(blobs, blob);
    }
    append(index, blobs);
    return signatureBlob(0xFADE0CC0, index);
}

} // namespace veridane::test
