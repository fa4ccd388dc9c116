#include "support/TlsIdentity.h"

#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace veridane::test {
namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;

Certificate selfSigned(EVP_PKEY* key) {
    Certificate certificate(X509_new(), &X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    constexpr long hour = 3600;
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -hour);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), hour);
    X509_NAME* const name = X509_get_subject_name(certificate.get());
    const unsigned char text[] = "Loopback";
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, text, -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    X509_set_pubkey(certificate.get(), key);
    X509_EXTENSION* const names =
        X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1,DNS:localhost");
    X509_add_ext(certificate.get(), names, -1);
    X509_EXTENSION_free(names);
    X509_sign(certificate.get(), key, EVP_sha256());
    return certificate;
}

} // namespace

TlsIdentity::TlsIdentity() : m_context(SSL_CTX_new(TLS_server_method()), &SSL_CTX_free) {
    const Key key(EVP_EC_gen("P-256"), &EVP_PKEY_free);
    const Certificate certificate = selfSigned(key.get());
    SSL_CTX_use_certificate(m_context.get(), certificate.get());
    SSL_CTX_use_PrivateKey(m_context.get(), key.get());
    // What is sent again after a wait may have moved.
    SSL_CTX_set_mode(m_context.get(), SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);

    char path[] = "/tmp/veridane-ca-XXXXXX";
    std::FILE* const file = ::fdopen(::mkstemp(path), "w");
    PEM_write_X509(file, certificate.get());
    std::fclose(file);
    m_caFile = path;
}

TlsIdentity::~TlsIdentity() {
    ::unlink(m_caFile.c_str());
}

} // namespace veridane::test
