#include "support/TlsIdentity.h"

#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

namespace veridane::test {

TlsIdentity::TlsIdentity() : m_context(SSL_CTX_new(TLS_server_method()), &SSL_CTX_free) {
    EVP_PKEY* const key = EVP_EC_gen("P-256");
    X509* const certificate = X509_new();
    X509_set_version(certificate, X509_VERSION_3);
    constexpr long hour = 3600;
    X509_gmtime_adj(X509_getm_notBefore(certificate), -hour);
    X509_gmtime_adj(X509_getm_notAfter(certificate), hour);
    X509_NAME* const name = X509_get_subject_name(certificate);
    const unsigned char text[] = "Loopback";
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, text, -1, -1, 0);
    X509_set_issuer_name(certificate, name);
    X509_set_pubkey(certificate, key);
    X509_EXTENSION* const names =
        X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1,DNS:localhost");
    X509_add_ext(certificate, names, -1);
    X509_sign(certificate, key, EVP_sha256());
    SSL_CTX_use_certificate(m_context.get(), certificate);
    SSL_CTX_use_PrivateKey(m_context.get(), key);

    BIO* const file = BIO_new_file(caFile().c_str(), "w");
    PEM_write_bio_X509(file, certificate);
    BIO_free(file);
    X509_EXTENSION_free(names);
    X509_free(certificate);
    EVP_PKEY_free(key);
}

} // namespace veridane::test
