#include "platform/CmsSigner.h"

#include "platform/BerReader.h"
#include "platform/Text.h"

#include <openssl/asn1.h>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/x509.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

// A full decoder also builds every certificate's public key, which takes fifty times as long as
// everything that is needed here. So this steps from element to element and decodes one name.

namespace veridane {
namespace {

constexpr int maxSteps = 4096;             // for one CMS; a real one takes about a hundred
constexpr std::size_t maxNameSize = 16384; // bytes

constexpr std::array<std::uint8_t, 9> signedDataType = {0x2A, 0x86, 0x48, 0x86, 0xF7,
                                                        0x0D, 0x01, 0x07, 0x02};
constexpr std::array<std::uint8_t, 3> subjectKeyIdentifierType = {0x55, 0x1D, 0x0E};

bool isEqual(ByteView a, ByteView b) {
    return std::ranges::equal(a.bytes(), b.bytes());
}

struct FreeName {
    void operator()(X509_NAME* name) const { X509_NAME_free(name); }
};
using Name = std::unique_ptr<X509_NAME, FreeName>;

Name decodeName(ByteView bytes) {
    if (bytes.size() > maxNameSize)
        return nullptr;
    const unsigned char* at = bytes.data();
    return Name(d2i_X509_NAME(nullptr, &at, static_cast<long>(bytes.size())));
}

bool isSameName(ByteView a, ByteView b) {
    if (isEqual(a, b))
        return true;
    // The same name may be encoded anew, with other string types or lengths.
    const Name first = decodeName(a), second = decodeName(b);
    return first && second && X509_NAME_cmp(first.get(), second.get()) == 0;
}

/// The parts of a CMS that are looked at.
struct SignedData {
    BerElement certificates;
    BerElement signer; // the first signer's name for its certificate
};

SignedData readSignedData(BerReader root) {
    auto contentInfo = root.in(root.nextUniversal(V_ASN1_SEQUENCE));
    if (!isEqual(contentInfo.nextUniversal(V_ASN1_OBJECT).content, ByteView(signedDataType)))
        return {};
    const BerElement content = contentInfo.next();
    if (!content.isContext(0))
        return {};
    auto fields = root.in(root.in(content).nextUniversal(V_ASN1_SEQUENCE));
    if (!fields.nextUniversal(V_ASN1_INTEGER) || !fields.nextUniversal(V_ASN1_SET) ||
        !fields.nextUniversal(V_ASN1_SEQUENCE))
        return {}; // version, digest algorithms, signed content

    SignedData result;
    BerElement field = fields.next();
    if (field.isContext(0)) {
        result.certificates = field;
        field = fields.next();
    }
    if (field.isContext(1)) // revocation lists
        field = fields.next();
    if (!field.isUniversal(V_ASN1_SET))
        return {};
    auto signerInfo = root.in(root.in(field).nextUniversal(V_ASN1_SEQUENCE));
    if (signerInfo.nextUniversal(V_ASN1_INTEGER))
        result.signer = signerInfo.next();
    return result;
}

/// What a signer may name a certificate by, and the certificate's subject.
struct Certificate {
    BerElement serial, issuer, subject;
    BerReader behindSubject;
};

Certificate readCertificate(const BerReader& reader, const BerElement& certificate) {
    auto outer = reader.in(certificate);
    auto fields = reader.in(outer.nextUniversal(V_ASN1_SEQUENCE));
    BerElement serial = fields.next();
    if (serial.isContext(0)) // the version, which the oldest certificates lack
        serial = fields.next();
    fields.next(); // algorithm of the signature
    const BerElement issuer = fields.nextUniversal(V_ASN1_SEQUENCE);
    fields.next(); // validity
    const BerElement subject = fields.nextUniversal(V_ASN1_SEQUENCE);
    return {serial, issuer, subject, fields};
}

/// The value of the subject key identifier extension; empty without one.
std::string keyIdentifier(BerReader behindSubject) {
    BerElement field = behindSubject.next(); // the public key
    while (field && !field.isContext(3))
        field = behindSubject.next();
    auto extensions = behindSubject.in(behindSubject.in(field).nextUniversal(V_ASN1_SEQUENCE));
    while (const BerElement extension = extensions.nextUniversal(V_ASN1_SEQUENCE)) {
        auto parts = extensions.in(extension);
        if (!isEqual(parts.nextUniversal(V_ASN1_OBJECT).content,
                     ByteView(subjectKeyIdentifierType)))
            continue;
        BerElement value = parts.next();
        if (value.isUniversal(V_ASN1_BOOLEAN)) // whether the extension is critical
            value = parts.next();
        const std::string encoded = parts.octets(value);
        int budget = maxSteps;
        BerReader inner(bytesOf(encoded), budget);
        return inner.octets(inner.nextUniversal(V_ASN1_OCTET_STRING));
    }
    return {};
}

bool isNamedBy(const BerReader& reader, const Certificate& certificate, const BerElement& signer) {
    if (signer.isContext(0)) {
        const std::string wanted = reader.octets(signer);
        return !wanted.empty() && wanted == keyIdentifier(certificate.behindSubject);
    }
    if (!signer.isUniversal(V_ASN1_SEQUENCE))
        return false;
    auto parts = reader.in(signer);
    const BerElement issuer = parts.nextUniversal(V_ASN1_SEQUENCE);
    const BerElement serial = parts.nextUniversal(V_ASN1_INTEGER);
    return issuer && serial && isEqual(serial.content, certificate.serial.content) &&
           isSameName(issuer.whole, certificate.issuer.whole);
}

/// The encoded subject of the first signer's certificate; empty if it is not there.
ByteView signerSubject(ByteView cms) {
    int budget = maxSteps;
    const BerReader root(cms, budget);
    const SignedData data = readSignedData(root);
    auto certificates = root.in(data.certificates);
    while (const BerElement element = certificates.next()) {
        if (!element.isUniversal(V_ASN1_SEQUENCE)) // obsolete kinds of certificates
            continue;
        const Certificate certificate = readCertificate(root, element);
        if (certificate.subject && isNamedBy(root, certificate, data.signer))
            return certificate.subject.whole;
    }
    return {};
}

/// Empty for a value that is no text.
std::string convertToUtf8(const ASN1_STRING* value) {
    unsigned char* utf8 = nullptr;
    const int length = ASN1_STRING_to_UTF8(&utf8, value);
    if (length < 0)
        return {};
    const ByteView converted(std::span(utf8, static_cast<std::size_t>(length)));
    std::string result = text::validUtf8(converted.text());
    OPENSSL_free(utf8);
    return result;
}

std::optional<std::string> summaryOf(const X509_NAME* subject) {
    for (const int kind : {NID_commonName, NID_organizationalUnitName, NID_organizationName,
                           NID_pkcs9_emailAddress}) {
        const int index = X509_NAME_get_index_by_NID(subject, kind, -1);
        if (index < 0)
            continue;
        const X509_NAME_ENTRY* entry = X509_NAME_get_entry(subject, index);
        std::string text = convertToUtf8(X509_NAME_ENTRY_get_data(entry));
        if (!text.empty())
            return text;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> signerSubjectSummary(ByteView cms) {
    // What OpenSSL has to say about damaged bytes must not look like another caller's error.
    ERR_set_mark();
    const ByteView subject = signerSubject(cms);
    const Name name = subject.empty() ? nullptr : decodeName(subject);
    auto summary = name ? summaryOf(name.get()) : std::nullopt;
    ERR_pop_to_mark();
    return summary;
}

} // namespace veridane
