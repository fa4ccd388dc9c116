#include "support/LoopbackServer.h"

#include "support/VolumeBuilder.h"

#include <netinet/in.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>
#include <sys/socket.h>

#include <array>
#include <csignal>
#include <cstdlib>

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

std::string answerText(int status, std::string_view body, std::string_view headers) {
    std::string text = "HTTP/1.1 " + std::to_string(status) + " Status\r\nContent-Length: ";
    text += std::to_string(body.size()) + "\r\n";
    return text.append(headers).append("\r\n").append(body);
}

LoopbackServer::Connection::Connection(int socket, const TlsIdentity* identity)
    : m_socket(socket), m_stream(BIO_new_socket(socket, BIO_CLOSE), &BIO_free_all) {
    if (identity)
        m_stream.reset(BIO_push(BIO_new_ssl(identity->context(), 0), m_stream.release()));
}

bool LoopbackServer::Connection::send(std::string_view bytes) {
    std::size_t count = 0;
    for (; !bytes.empty(); bytes.remove_prefix(count))
        if (BIO_write_ex(m_stream.get(), bytes.data(), bytes.size(), &count) == 0)
            return false;
    return true;
}

void LoopbackServer::Connection::answer(int status, std::string_view body,
                                        std::string_view headers) {
    send(answerText(status, body, headers));
}

void LoopbackServer::Connection::sendEndlessly(std::string_view bytes) {
    while (send(bytes))
        continue;
}

void LoopbackServer::Connection::stall() {
    std::array<char, 4096> ignored;
    while (BIO_read(m_stream.get(), ignored.data(), static_cast<int>(ignored.size())) > 0)
        continue;
}

void LoopbackServer::Connection::close() {
    ::shutdown(m_socket, SHUT_RDWR);
}

bool LoopbackServer::Connection::receive(Request& request) {
    constexpr std::string_view emptyLine = "\r\n\r\n";
    std::size_t end;
    while ((end = m_received.find(emptyLine)) == std::string::npos) {
        std::array<char, 4096> bytes;
        std::size_t count = 0;
        if (BIO_read_ex(m_stream.get(), bytes.data(), bytes.size(), &count) == 0)
            return false;
        m_received.append(bytes.data(), count);
    }
    request.head = m_received.substr(0, end + emptyLine.size());
    m_received.erase(0, request.head.size());
    const auto start = request.head.find(' ') + 1;
    request.target = request.head.substr(start, request.head.find(' ', start) - start);
    return true;
}

LoopbackServer::LoopbackServer(Handler handler, Security security)
    : m_handler(std::move(handler)),
      m_identity(security == Security::tls ? std::make_unique<TlsIdentity>() : nullptr),
      m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{}; // any free port of all addresses
    address.sin_family = AF_INET;
    socklen_t size = sizeof address;
    auto* const name = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener.get(), name, size) != 0 || ::listen(m_listener.get(), SOMAXCONN) != 0 ||
        ::getsockname(m_listener.get(), name, &size) != 0)
        std::abort(); // no test can go on without it
    m_port = std::to_string(ntohs(address.sin_port));
    m_acceptor = std::thread([this] { acceptConnections(); });
}

LoopbackServer::~LoopbackServer() {
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_all();
    ::shutdown(m_listener.get(), SHUT_RDWR); // wakes who waits for it, and so below
    m_acceptor.join();
    {
        const std::lock_guard lock(m_mutex);
        for (const int socket : m_sockets)
            ::shutdown(socket, SHUT_RDWR);
    }
    for (std::thread& session : m_sessions)
        session.join();
}

void LoopbackServer::acceptConnections() {
    // What is written to a socket may come after its peer has gone.
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
    for (;;) {
        const int socket = ::accept4(m_listener.get(), nullptr, nullptr, SOCK_CLOEXEC);
        const std::lock_guard lock(m_mutex);
        if (socket >= 0) {
            m_sockets.insert(socket);
            m_sessions.emplace_back([this, socket] { serve(socket); });
        } else if (m_isStopping) {
            return;
        }
    }
}

void LoopbackServer::serve(int socket) {
    Connection connection(socket, m_identity.get());
    Request request;
    while (connection.receive(request)) {
        {
            const std::lock_guard lock(m_mutex);
            m_heads.push_back(request.head);
        }
        m_changed.notify_all();
        m_handler(request, connection);
    }
    const std::lock_guard lock(m_mutex);
    m_sockets.erase(socket); // before it is closed: another one may get its number then
}

std::string LoopbackServer::url(std::string_view path, std::string_view host) const {
    std::string url = m_identity ? "https://" : "http://";
    return url.append(host).append(":").append(m_port).append(path);
}

void LoopbackServer::waitForRequests(std::size_t count) {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_isStopping || m_heads.size() >= count; });
}

std::vector<std::string> LoopbackServer::heads() const {
    const std::lock_guard lock(m_mutex);
    return m_heads;
}

std::string LoopbackServer::caFile() const {
    return m_identity->caFile();
}

} // namespace veridane::test
