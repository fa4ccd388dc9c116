#pragma once

#include "support/VolumeBuilder.h"

#include <memory>
#include <string>

typedef struct ssl_ctx_st SSL_CTX;

namespace veridane::test {

/// A fresh key and a certificate for 127.0.0.1 and localhost that nobody but a test trusts.
class TlsIdentity {
public:
    TlsIdentity();

    /// For the connections of a server.
    [[nodiscard]] SSL_CTX* context() const { return m_context.get(); }

    /// The certificate as PEM, for as long as this lives.
    [[nodiscard]] std::string caFile() const { return m_folder.hostPath("/ca.pem"); }

private:
    VolumeBuilder m_folder;
    std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> m_context;
};

} // namespace veridane::test
