#pragma once

#include "platform/Descriptor.h"

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

typedef struct bio_st BIO;

namespace veridane::test {

class TlsIdentity;

/// A whole answer with its length. `headers` are further lines, each ending in "\r\n".
[[nodiscard]] std::string answerText(int status, std::string_view body = {},
                                     std::string_view headers = {});

/// A small HTTP/1.1 server on a free port of this machine. It listens on all addresses, so that
/// 127.0.0.1 to 127.0.0.40 are forty hosts. What it answers is up to a function:
///
///     LoopbackServer server([](const LoopbackServer::Request& request, auto& connection) {
///         connection.answer(request.target == "/feed.xml" ? 200 : 404, "body");
///     });
///     client.get({*Url::parse(server.url("/feed.xml"))}, ...);
///
/// The function runs once for each request, on a thread for each connection, so guard what it
/// shares. When it returns, the connection waits for the next request, unless it was closed.
/// Everything that waits in here ends when the server is destroyed.
class LoopbackServer {
public:
    struct Request {
        std::string target; // "/path?query", or a whole URL if we are used as a proxy
        std::string head;   // as received, with the empty line at its end
    };

    /// What a handler does to its client. Once the connection has ended, all of it does nothing.
    class Connection {
    public:
        /// Owns the socket.
        Connection(int socket, const TlsIdentity* identity);

        /// Bytes as they are. False if they cannot all be sent.
        bool send(std::string_view bytes);
        /// Sends a whole answer, see `answerText`.
        void answer(int status, std::string_view body = {}, std::string_view headers = {});
        /// The same bytes again and again until the peer goes away.
        void sendEndlessly(std::string_view bytes);
        /// Says nothing until the peer goes away.
        void stall();
        void close();
        /// Waits for the next request. False if there will be none.
        bool receive(Request& request);

    private:
        int m_socket;
        std::unique_ptr<BIO, void (*)(BIO*)> m_stream;
        std::string m_received; // and not yet used
    };

    using Handler = std::function<void(const Request&, Connection&)>;

    enum class Security { none, tls };

    explicit LoopbackServer(Handler handler, Security security = Security::none);
    ~LoopbackServer();

    [[nodiscard]] std::string url(std::string_view path = "/",
                                  std::string_view host = "127.0.0.1") const;

    /// Returns when the server has got this many requests in all, or ends.
    void waitForRequests(std::size_t count);

    /// The heads of all requests up to now, in the order of arrival.
    [[nodiscard]] std::vector<std::string> heads() const;

    /// What makes a client trust the server; only with TLS. It is made out for 127.0.0.1 and
    /// localhost, and the other addresses are wrong names.
    [[nodiscard]] std::string caFile() const;

private:
    void acceptConnections();
    void serve(int socket);

    Handler m_handler;
    std::unique_ptr<TlsIdentity> m_identity;
    Descriptor m_listener;
    std::string m_port;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_heads;
    std::set<int> m_sockets; // of the connections, while they are open
    bool m_isStopping = false;
    std::vector<std::thread> m_sessions; // only for m_acceptor, until that has ended
    std::thread m_acceptor;
};

} // namespace veridane::test
