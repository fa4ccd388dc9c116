#include "support/SignatureBuilder.h"

#include "support/MachOBuilder.h"

#include <openssl/asn1.h>
#include <openssl/cms.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <algorithm>
#include <cassert>
#include <memory>
#include <utility>

namespace veridane::test {
namespace {

template <auto release>
struct Free {
    template <typename T>
    void operator()(T* object) const {
        release(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Free<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Free<X509_free>>;
using Name = std::unique_ptr<X509_NAME, Free<X509_NAME_free>>;
using Cms = std::unique_ptr<CMS_ContentInfo, Free<CMS_ContentInfo_free>>;

void addToName(const Name& name, int kind, const std::string& text) {
    X509_NAME_add_entry_by_NID(name.get(), kind, V_ASN1_UTF8STRING,
                               reinterpret_cast<const unsigned char*>(text.data()),
                               static_cast<int>(text.size()), -1, 0);
}

Name plainName(const std::string& commonName) {
    Name name(X509_NAME_new());
    addToName(name, NID_commonName, commonName);
    return name;
}

Name leafName(const SignatureSpec& spec) {
    Name name(X509_NAME_new());
    addToName(name, NID_userId, "UID1234567");
    for (const auto& [kind, text] :
         {std::pair(NID_commonName, spec.leafCommonName),
          std::pair(NID_organizationalUnitName, spec.leafOrganisationalUnit),
          std::pair(NID_organizationName, spec.leafOrganisation),
          std::pair(NID_pkcs9_emailAddress, spec.leafEmail)}) {
        if (text)
            addToName(name, kind, *text);
    }
    return name;
}

/// Certificates have no secrets to keep here, so that one key is enough for all of them.
EVP_PKEY* sharedKey() {
    static const Key key(EVP_EC_gen("P-256"));
    return key.get();
}

Certificate certificate(const Name& subject, const Name& issuer, const char* keyIdentifier,
                        const std::string& comment) {
    Certificate result(X509_new());
    X509_set_version(result.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(result.get()), 0x5EED1234);
    X509_set_subject_name(result.get(), subject.get());
    X509_set_issuer_name(result.get(), issuer.get());
    ASN1_TIME_set_string(X509_getm_notBefore(result.get()), "20200101000000Z");
    ASN1_TIME_set_string(X509_getm_notAfter(result.get()), "20400101000000Z");
    X509_set_pubkey(result.get(), sharedKey());
    for (const auto& [kind, text] : {std::pair(NID_subject_key_identifier, keyIdentifier),
                                     std::pair(NID_netscape_comment, comment.c_str())}) {
        const std::unique_ptr<X509_EXTENSION, Free<X509_EXTENSION_free>> extension(
            X509V3_EXT_conf_nid(nullptr, nullptr, kind, text));
        X509_add_ext(result.get(), extension.get(), -1);
    }
    X509_sign(result.get(), sharedKey(), EVP_sha256());
    return result;
}

Bytes encoded(const CMS_ContentInfo* cms, bool indefiniteLengths) {
    const auto encode = indefiniteLengths ? ASN1_item_ndef_i2d : ASN1_item_i2d;
    unsigned char* start = nullptr;
    const int size = encode(reinterpret_cast<const ASN1_VALUE*>(cms), &start, CMS_ContentInfo_it());
    assert(size > 0 && "a CMS that cannot be encoded");
    Bytes bytes(start, start + size);
    OPENSSL_free(start);
    return bytes;
}

/// A signature by the leaf, in a chain below an authority of the given name.
Bytes signedCms(const std::string& authority, const Name& leafSubject, const SignatureSpec& spec,
                const Bytes& timeStamp) {
    const Name rootName = plainName(authority + " Root"), middleName = plainName(authority);
    const Certificate root = certificate(rootName, rootName, "01:01", "root");
    const Certificate middle = certificate(middleName, rootName, "02:02", "intermediate");
    // A set is ordered by its elements' bytes, which begin with their sizes: like the leaves of
    // real chains, which state their policy, this one is by far the largest.
    const Certificate leaf = certificate(leafSubject, middleName, "03:03", std::string(400, '.'));

    constexpr unsigned int detached = CMS_PARTIAL | CMS_DETACHED | CMS_BINARY;
    const Cms cms(CMS_sign(nullptr, nullptr, nullptr, nullptr, detached));
    for (const auto* member : {&root, &middle})
        CMS_add1_cert(cms.get(), member->get());
    CMS_SignerInfo* signer =
        CMS_add1_signer(cms.get(), leaf.get(), sharedKey(), EVP_sha256(),
                        detached | (spec.signerByKeyIdentifier ? CMS_USE_KEYID : 0));
    const std::unique_ptr<BIO, Free<BIO_free>> content(BIO_new_mem_buf("content", 7));
    CMS_final(cms.get(), content.get(), nullptr, detached);
    if (!timeStamp.empty())
        CMS_unsigned_add1_attr_by_NID(signer, NID_id_smime_aa_timeStampToken, V_ASN1_SEQUENCE,
                                      timeStamp.data(), static_cast<int>(timeStamp.size()));
    return encoded(cms.get(), spec.indefiniteLengths);
}

bool isAdHoc(const SignatureSpec& spec) {
    return !spec.leafCommonName && !spec.leafOrganisationalUnit && !spec.leafOrganisation &&
           !spec.leafEmail;
}

Bytes blob(std::uint32_t magic, const Bytes& content) {
    Bytes bytes;
    appendBigEndian32(bytes, magic);
    appendBigEndian32(bytes, static_cast<std::uint32_t>(8 + content.size()));
    bytes.insert(bytes.end(), content.begin(), content.end());
    return bytes;
}

void putBigEndian32(Bytes& bytes, std::size_t offset, std::size_t value) {
    Bytes word;
    appendBigEndian32(word, static_cast<std::uint32_t>(value));
    std::copy(word.begin(), word.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
}

} // namespace

Bytes codeDirectoryFile(const SignatureSpec& spec) {
    const std::uint32_t version = spec.codeDirectoryVersion;
    const std::size_t headerSize = version >= 0x20400 ? 88 : version >= 0x20200 ? 52 : 48;
    Bytes content(headerSize - 8); // offsets count from the blob's start
    const auto appendText = [&content](const std::string& text) {
        const std::size_t offset = content.size() + 8;
        content.insert(content.end(), text.begin(), text.end());
        content.push_back(0);
        return offset;
    };
    putBigEndian32(content, 0, version);
    putBigEndian32(content, 12, appendText(spec.identifier));
    if (spec.teamIdentifier && version >= 0x20200)
        putBigEndian32(content, 40, appendText(*spec.teamIdentifier));
    putBigEndian32(content, 8, content.size() + 8); // the hashes
    putBigEndian32(content, 20, 1);                 // one page
    putBigEndian32(content, 24, 4096);              // of code
    putBigEndian32(content, 28, 0x2002000C);        // SHA-256, pages of 4096 bytes
    content.resize(content.size() + 32, 0xA5);
    return blob(0xFADE0C02, content);
}

Bytes cmsFile(const SignatureSpec& spec) {
    if (isAdHoc(spec))
        return {};
    const Name timeServer = plainName("Example Time Stamp Signer");
    const Bytes timeStamp =
        spec.withTimeStamp ? signedCms("Example Time Stamping", timeServer, spec, {}) : Bytes();
    return signedCms("Example Developer Authority", leafName(spec), spec, timeStamp);
}

Bytes embeddedSignature(const SignatureSpec& spec) {
    using enum SignatureSpec::AdHocShape;
    constexpr std::uint32_t codeDirectorySlot = 0, requirementsSlot = 2, cmsSlot = 0x10000;
    Bytes result = codeDirectoryFile(spec);
    if (!isAdHoc(spec) || spec.adHocShape != codeDirectoryOnly) {
        std::vector<std::pair<std::uint32_t, Bytes>> blobs = {
            {codeDirectorySlot, result}, {requirementsSlot, blob(0xFADE0C01, Bytes(4))}};
        if (!isAdHoc(spec) || spec.adHocShape != noCmsBlob)
            blobs.emplace_back(cmsSlot, blob(0xFADE0B01, cmsFile(spec)));
        Bytes index, contents;
        appendBigEndian32(index, static_cast<std::uint32_t>(blobs.size()));
        for (const auto& [slot, bytes] : blobs) {
            appendBigEndian32(index, slot);
            appendBigEndian32(index,
                              static_cast<std::uint32_t>(12 + blobs.size() * 8 + contents.size()));
            contents.insert(contents.end(), bytes.begin(), bytes.end());
        }
        index.insert(index.end(), contents.begin(), contents.end());
        result = blob(0xFADE0CC0, index);
    }
    result.resize(result.size() + spec.padding);
    return result;
}

} // namespace veridane::test
