#pragma once

#include "platform/HttpClient.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace veridane {

struct HttpSettings {
    /// Ends a transfer that has not connected within this time, names looked up and TLS agreed on,
    /// and one in which nothing arrives for so long after that.
    std::chrono::milliseconds silence{15'000};
    /// Ends any transfer: a server that drips a byte now and then must not keep it for ever.
    std::chrono::milliseconds duration{600'000};
    std::uint64_t largestBody = std::uint64_t{64} << 20;     // bytes, after decompression
    std::uint64_t largestHeaders = std::uint64_t{256} << 10; // bytes of one answer
    int transfersPerHost = 6; // at once; more over HTTP/2, where they share a connection
    int transfers = 64;       // at once; the others wait, and no clock runs for them
    int redirects = 20;
    std::optional<std::string> caFile; // PEM; the system's own certificates without

    /// The defaults, with SSL_CERT_FILE as `caFile`: where networks look into TLS, programs are
    /// told of their certificate this way. Proxies need no setting, curl knows their variables.
    [[nodiscard]] static HttpSettings ofEnvironment();
};

/// Fetches through libcurl, all transfers on one thread. Only http and https, proxies as the
/// environment names them, certificates checked. Sends the headers that HTTP needs and a
/// User-Agent; keeps no cookies, passwords or answers, and takes none from the machine.
class CurlHttpClient : public HttpClient {
public:
    explicit CurlHttpClient(HttpSettings settings = {});

    /// Ends all transfers at once; waits only for a handler that is running.
    ~CurlHttpClient() override;
    CurlHttpClient(const CurlHttpClient&) = delete;
    CurlHttpClient& operator=(const CurlHttpClient&) = delete;

    void get(const HttpRequest& request, BodyHandler onBody, Completion onEnd) override;

private:
    class Network;

    std::unique_ptr<Network> m_network;
};

} // namespace veridane
