#pragma once

#include "platform/Descriptor.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

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
///     client.get(*Url::parse(server.url("/feed.xml")), ...);
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

    /// What a handler does to its client. After the peer or the server has ended the connection, or
    /// one of the last three functions has, all of it does nothing.
    class Connection {
    public:
        virtual ~Connection() = default;

        /// Bytes as they are. False if they cannot all be sent.
        virtual bool send(std::string_view bytes) = 0;
        /// Sends a whole answer, see `answerText`.
        void answer(int status, std::string_view body = {}, std::string_view headers = {});
        /// Says nothing until the server has got this many requests in all.
        virtual void waitForRequests(std::size_t count) = 0;
        /// Says nothing until the peer goes away.
        virtual void stall() = 0;
        /// The same bytes again and again until the peer goes away.
        void sendEndlessly(std::string_view bytes);
        virtual void close() = 0;
        /// Ends it with an error for the peer.
        virtual void reset() = 0;
    };

    using Handler = std::function<void(const Request&, Connection&)>;

    enum class Security { none, tls };

    explicit LoopbackServer(Handler handler, Security security = Security::none);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    [[nodiscard]] std::string url(std::string_view path = "/",
                                  std::string_view host = "127.0.0.1") const;
    [[nodiscard]] std::uint16_t port() const { return m_port; }

    /// Returns when the server has got this many requests in all, or ends.
    void waitForRequests(std::size_t count);

    /// The heads of all requests up to now, in the order of arrival.
    [[nodiscard]] std::vector<std::string> heads() const;

    /// What makes a client trust the server; only with TLS. It is made out for 127.0.0.1 and
    /// localhost, and the other addresses are wrong names.
    [[nodiscard]] const std::string& caFile() const;

private:
    class Session;

    void acceptConnections();

    Handler m_handler;
    std::unique_ptr<TlsIdentity> m_identity;
    std::uint16_t m_port = 0;
    Descriptor m_listener;
    Descriptor m_stop; // readable as soon as everything has to end
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_heads;
    bool m_isStopping = false;
    std::vector<std::thread> m_sessions; // only for m_acceptor, until that has ended
    std::thread m_acceptor;
};

} // namespace veridane::test
