#include "platform/CurlHttpClient.h"

#include "platform/CurlTransfer.h"
#include "platform/Environment.h"
#include "platform/TransferQueue.h"

#include <curl/curl.h>
#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <cassert>
#include <exception>
#include <limits>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

namespace veridane {
namespace {

using Clock = CurlTransfer::Clock;

// Milliseconds. Only for a process that had no descriptor left to be woken through.
constexpr int pollUnlessWoken = 1'000;

/// A transfer on its way needs up to four descriptors: two of the resolver and one of what it asks,
/// then one for each of the two addresses that are tried at a time. Some remain for everybody else.
int affordableTransfers(int wanted) {
    constexpr rlim_t perTransfer = 4, forOthers = 64;
    rlimit files{};
    if (::getrlimit(RLIMIT_NOFILE, &files) != 0)
        return wanted;
    const rlim_t affordable = (std::max(files.rlim_cur, forOthers) - forOthers) / perTransfer;
    return static_cast<int>(std::clamp(affordable, rlim_t{1}, static_cast<rlim_t>(wanted)));
}

CURLM* newMultiHandle() {
    // Never undone: a thread of the resolver may still be running when the last client is gone.
    static const CURLcode initialised = curl_global_init(CURL_GLOBAL_DEFAULT);
    CURLM* const handle = initialised == CURLE_OK ? curl_multi_init() : nullptr;
    if (!handle)
        std::terminate(); // out of memory, as when `new` has none
    return handle;
}

HttpSettings withAffordableTransfers(HttpSettings settings) {
    assert(settings.transfers > 0 && settings.transfersPerHost > 0 && "else nothing ever starts");
    settings.transfers = affordableTransfers(settings.transfers);
    return settings;
}

} // namespace

HttpSettings HttpSettings::ofEnvironment() {
    HttpSettings settings;
    settings.caFile = Environment::variable("SSL_CERT_FILE");
    return settings;
}

/// The thread and what it works on.
class CurlHttpClient::Network {
public:
    explicit Network(HttpSettings settings);
    ~Network();
    Network(const Network&) = delete;
    Network& operator=(const Network&) = delete;

    void get(const HttpRequest& request, BodyHandler onBody, Completion onEnd);

private:
    struct Request {
        HttpRequest what;
        BodyHandler onBody;
        Completion onEnd;
    };

    void run();
    void takeRequests();
    void startWaiting();
    void finishDone();
    void finishSilent(Clock::time_point now);
    void finish(CURL* handle, CURLcode result);
    [[nodiscard]] CurlTransfer::Bounds boundsOf(const HttpRequest& request) const;
    [[nodiscard]] int millisecondsToNextSilence() const;

    const HttpSettings m_settings;
    CURLM* const m_multi;
    const int m_longestPoll; // milliseconds
    std::atomic<bool> m_isEnding = false;
    std::mutex m_mutex;
    std::vector<Request> m_requests; // those that the thread has not seen
    TransferQueue m_queue;
    std::unordered_map<CURL*, std::unique_ptr<CurlTransfer>> m_running;
    std::thread m_thread; // last: it uses everything above
};

CurlHttpClient::Network::Network(HttpSettings settings)
    : m_settings(withAffordableTransfers(std::move(settings))), m_multi(newMultiHandle()),
      m_longestPoll(curl_multi_wakeup(m_multi) == CURLM_OK ? std::numeric_limits<int>::max()
                                                           : pollUnlessWoken),
      m_queue(m_settings.transfers, m_settings.transfersPerHost) {
    const long connections = m_settings.transfers;
    curl_multi_setopt(m_multi, CURLMOPT_PIPELINING, CURLPIPE_MULTIPLEX);
    // Our queue keeps to both, but transfers that shared an HTTP/2 connection may lose it.
    curl_multi_setopt(m_multi, CURLMOPT_MAX_TOTAL_CONNECTIONS, connections);
    curl_multi_setopt(m_multi, CURLMOPT_MAX_HOST_CONNECTIONS, long{m_settings.transfersPerHost});
    curl_multi_setopt(m_multi, CURLMOPT_MAXCONNECTS, connections);
    m_thread = std::thread([this] { run(); });
}

CurlHttpClient::Network::~Network() {
    m_isEnding = true;
    curl_multi_wakeup(m_multi);
    m_thread.join();
    for (const auto& entry : m_running)
        curl_multi_remove_handle(m_multi, entry.first);
    m_running.clear();
    curl_multi_cleanup(m_multi);
}

void CurlHttpClient::Network::get(const HttpRequest& request, BodyHandler onBody,
                                  Completion onEnd) {
    {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back({request, std::move(onBody), std::move(onEnd)});
    }
    curl_multi_wakeup(m_multi);
}

void CurlHttpClient::Network::run() {
    while (!m_isEnding) {
        takeRequests();
        // Silence counts up to here. Later instants would blame the servers for a slow handler,
        // whose time the others' bytes have spent waiting for us.
        const auto now = Clock::now();
        int running = 0;
        curl_multi_perform(m_multi, &running);
        finishDone();
        finishSilent(now);
        startWaiting();
        curl_multi_poll(m_multi, nullptr, 0, millisecondsToNextSilence(), nullptr);
    }
}

void CurlHttpClient::Network::takeRequests() {
    std::vector<Request> requests;
    {
        const std::lock_guard lock(m_mutex);
        requests.swap(m_requests);
    }
    for (Request& request : requests) {
        auto target = HttpTarget::of(request.what.url);
        if (m_isEnding)
            return;
        if (auto* error = std::get_if<TransportError>(&target))
            request.onEnd(std::move(*error));
        else
            m_queue.add(std::make_unique<CurlTransfer>(
                std::get<HttpTarget>(std::move(target)), boundsOf(request.what),
                std::move(request.onBody), std::move(request.onEnd)));
    }
}

CurlTransfer::Bounds CurlHttpClient::Network::boundsOf(const HttpRequest& request) const {
    return {std::min(request.duration.value_or(m_settings.duration), m_settings.duration),
            std::min(request.largestBody.value_or(m_settings.largestBody), m_settings.largestBody)};
}

void CurlHttpClient::Network::startWaiting() {
    while (auto transfer = m_queue.take()) {
        CURL* const handle = transfer->begin(m_settings, m_isEnding);
        if (handle && curl_multi_add_handle(m_multi, handle) == CURLM_OK) {
            m_running.emplace(handle, std::move(transfer));
            continue;
        }
        m_queue.finished(transfer->origin(), false);
        if (m_isEnding)
            return;
        transfer->end(TransportError{curl_easy_strerror(CURLE_OUT_OF_MEMORY), std::nullopt});
    }
}

void CurlHttpClient::Network::finishDone() {
    int remaining = 0;
    while (const CURLMsg* message = curl_multi_info_read(m_multi, &remaining))
        if (message->msg == CURLMSG_DONE)
            finish(message->easy_handle, message->data.result);
}

void CurlHttpClient::Network::finishSilent(Clock::time_point now) {
    std::vector<CURL*> silent;
    for (const auto& [handle, transfer] : m_running)
        if (const auto last = transfer->lastActivity(); last && *last + m_settings.silence <= now)
            silent.push_back(handle);
    for (CURL* const handle : silent)
        finish(handle, CURLE_OPERATION_TIMEDOUT);
}

void CurlHttpClient::Network::finish(CURL* handle, CURLcode result) {
    auto transfer = std::move(m_running.extract(handle).mapped());
    curl_multi_remove_handle(m_multi, handle);
    m_queue.finished(transfer->origin(), transfer->isMultiplexed());
    if (auto outcome = transfer->conclude(result)) {
        if (!m_isEnding)
            transfer->end(std::move(*outcome));
        return;
    }
    m_queue.add(std::move(transfer));
}

int CurlHttpClient::Network::millisecondsToNextSilence() const {
    auto next = Clock::time_point::max();
    for (const auto& entry : m_running)
        if (const auto last = entry.second->lastActivity())
            next = std::min(next, *last + m_settings.silence);
    if (next == Clock::time_point::max())
        return m_longestPoll; // a request wakes us, and so does curl's own clock
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, m_longestPoll));
}

CurlHttpClient::CurlHttpClient(HttpSettings settings)
    : m_network(std::make_unique<Network>(std::move(settings))) {}

CurlHttpClient::~CurlHttpClient() = default;

void CurlHttpClient::get(const HttpRequest& request, BodyHandler onBody, Completion onEnd) {
    m_network->get(request, std::move(onBody), std::move(onEnd));
}

} // namespace veridane
