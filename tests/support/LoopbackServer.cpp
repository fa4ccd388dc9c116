#include "support/LoopbackServer.h"

#include "support/TlsIdentity.h"

#include <netinet/in.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace veridane::test {

std::string answerText(int status, std::string_view body, std::string_view headers) {
    std::string text = "HTTP/1.1 " + std::to_string(status) + " Status\r\nContent-Length: ";
    text += std::to_string(body.size()) + "\r\n";
    return text.append(headers).append("\r\n").append(body);
}

/// One connection. The socket does not block: all waiting is for the socket or the server's end.
class LoopbackServer::Session : public Connection {
public:
    Session(LoopbackServer& server, Descriptor socket);

    void serve();

    bool send(std::string_view bytes) override;
    void waitForRequests(std::size_t count) override;
    void stall() override;
    void close() override;
    void reset() override;

private:
    bool readRequest(Request& request);
    /// Up to `size` bytes; 0 when there will be no more.
    std::size_t read(char* to, std::size_t size);
    /// Makes a call until it neither has to wait nor is interrupted; 0 or less when it never will.
    template <typename Call>
    long completed(short event, Call call);
    bool waitFor(short events);

    LoopbackServer& m_server;
    Descriptor m_socket;
    std::unique_ptr<SSL, void (*)(SSL*)> m_tls;
    std::string m_received; // and not yet used
};

LoopbackServer::Session::Session(LoopbackServer& server, Descriptor socket)
    : m_server(server), m_socket(std::move(socket)), m_tls(nullptr, &SSL_free) {
    if (!m_server.m_identity)
        return;
    m_tls.reset(SSL_new(m_server.m_identity->context()));
    SSL_set_fd(m_tls.get(), m_socket.get());
}

void LoopbackServer::Session::serve() {
    if (m_tls && completed(POLLIN, [this] { return SSL_accept(m_tls.get()); }) <= 0)
        return;
    Request request;
    while (readRequest(request)) {
        {
            const std::lock_guard lock(m_server.m_mutex);
            m_server.m_heads.push_back(request.head);
        }
        m_server.m_changed.notify_all();
        m_server.m_handler(request, *this);
    }
}

bool LoopbackServer::Session::readRequest(Request& request) {
    constexpr std::string_view emptyLine = "\r\n\r\n";
    std::size_t end;
    while ((end = m_received.find(emptyLine)) == std::string::npos) {
        std::array<char, 4096> bytes;
        const std::size_t count = read(bytes.data(), bytes.size());
        if (count == 0)
            return false;
        m_received.append(bytes.data(), count);
    }
    request.head = m_received.substr(0, end + emptyLine.size());
    m_received.erase(0, request.head.size());
    const auto start = request.head.find(' ') + 1;
    request.target = request.head.substr(start, request.head.find(' ', start) - start);
    return true;
}

bool LoopbackServer::Session::waitFor(short events) {
    std::array<pollfd, 2> files{{{m_socket.get(), events, 0}, {m_server.m_stop.get(), POLLIN, 0}}};
    while (::poll(files.data(), files.size(), -1) < 0)
        if (errno != EINTR)
            return false;
    return files[1].revents == 0;
}

template <typename Call>
long LoopbackServer::Session::completed(short event, Call call) {
    while (m_socket) {
        const long result = call();
        if (result > 0)
            return result;
        if (m_tls) {
            const int why = SSL_get_error(m_tls.get(), static_cast<int>(result));
            if (why != SSL_ERROR_WANT_READ && why != SSL_ERROR_WANT_WRITE)
                return 0;
            event = why == SSL_ERROR_WANT_READ ? POLLIN : POLLOUT;
        } else if (result == 0 || (errno != EAGAIN && errno != EINTR)) {
            return 0;
        }
        if (!waitFor(event))
            return 0;
    }
    return 0;
}

std::size_t LoopbackServer::Session::read(char* to, std::size_t size) {
    const long count = completed(POLLIN, [&]() -> long {
        return m_tls ? SSL_read(m_tls.get(), to, static_cast<int>(size))
                     : ::recv(m_socket.get(), to, size, 0);
    });
    return static_cast<std::size_t>(count);
}

bool LoopbackServer::Session::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const long count = completed(POLLOUT, [&]() -> long {
            return m_tls ? SSL_write(m_tls.get(), bytes.data(), static_cast<int>(bytes.size()))
                         : ::send(m_socket.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        });
        if (count == 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void LoopbackServer::Session::waitForRequests(std::size_t count) {
    m_server.waitForRequests(count);
}

void LoopbackServer::Session::stall() {
    std::array<char, 4096> ignored;
    while (read(ignored.data(), ignored.size()) > 0)
        continue;
}

void LoopbackServer::Session::close() {
    m_socket.close();
}

void LoopbackServer::Session::reset() {
    const linger none{1, 0};
    ::setsockopt(m_socket.get(), SOL_SOCKET, SO_LINGER, &none, sizeof none);
    m_socket.close();
}

void LoopbackServer::Connection::answer(int status, std::string_view body,
                                        std::string_view headers) {
    send(answerText(status, body, headers));
}

void LoopbackServer::Connection::sendEndlessly(std::string_view bytes) {
    while (send(bytes))
        continue;
}

LoopbackServer::LoopbackServer(Handler handler, Security security)
    : m_handler(std::move(handler)),
      m_identity(security == Security::tls ? std::make_unique<TlsIdentity>() : nullptr),
      m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)),
      m_stop(::eventfd(0, EFD_CLOEXEC)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_ANY);
    socklen_t size = sizeof address;
    auto* const name = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener.get(), name, size) != 0 || ::listen(m_listener.get(), SOMAXCONN) != 0 ||
        ::getsockname(m_listener.get(), name, &size) != 0)
        std::abort(); // no test can go on without it
    m_port = ntohs(address.sin_port);
    m_acceptor = std::thread([this] { acceptConnections(); });
}

LoopbackServer::~LoopbackServer() {
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_all();
    const std::uint64_t one = 1;
    if (::write(m_stop.get(), &one, sizeof one) != sizeof one)
        std::abort();
    m_acceptor.join();
    for (std::thread& session : m_sessions)
        session.join();
}

void LoopbackServer::acceptConnections() {
    std::array<pollfd, 2> files{{{m_listener.get(), POLLIN, 0}, {m_stop.get(), POLLIN, 0}}};
    for (;;) {
        if (::poll(files.data(), files.size(), -1) > 0 && files[1].revents != 0)
            return;
        Descriptor socket(
            ::accept4(m_listener.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!socket)
            continue;
        m_sessions.emplace_back([this, descriptor = socket.release()] {
            // TLS writes to the socket itself, and the peer may be gone by then.
            sigset_t brokenPipe;
            sigemptyset(&brokenPipe);
            sigaddset(&brokenPipe, SIGPIPE);
            pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
            Session(*this, Descriptor(descriptor)).serve();
        });
    }
}

std::string LoopbackServer::url(std::string_view path, std::string_view host) const {
    return std::string(m_identity ? "https://" : "http://") + std::string(host) + ":" +
           std::to_string(m_port) + std::string(path);
}

void LoopbackServer::waitForRequests(std::size_t count) {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_isStopping || m_heads.size() >= count; });
}

std::vector<std::string> LoopbackServer::heads() const {
    const std::lock_guard lock(m_mutex);
    return m_heads;
}

const std::string& LoopbackServer::caFile() const {
    return m_identity->caFile();
}

} // namespace veridane::test
