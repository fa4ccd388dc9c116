#pragma once

#include "platform/CurlHttpClient.h"
#include "platform/HttpTarget.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace veridane {

/// One GET on its way from the first target to the last. Handles and results are curl's, `CURL*`
/// and `CURLcode`. Lives on the network thread.
class CurlTransfer {
public:
    using Clock = std::chrono::steady_clock;

    struct Bounds {
        std::chrono::milliseconds duration;
        std::uint64_t largestBody; // bytes
    };
    CurlTransfer(HttpTarget target, const Bounds& bounds, HttpClient::BodyHandler onBody,
                 HttpClient::Completion onEnd);
    CurlTransfer(const CurlTransfer&) = delete;
    CurlTransfer& operator=(const CurlTransfer&) = delete;

    [[nodiscard]] const std::string& origin() const { return m_target.origin(); }

    /// A handle that requests the present target, valid until the next one; null without memory.
    /// As soon as `isEnding` is set, no handler is called any more. Both references have to live
    /// as long as the handle.
    [[nodiscard]] void* begin(const HttpSettings& settings, const std::atomic<bool>& isEnding);

    /// When something arrived, or was ready to; nothing until the connection stands.
    [[nodiscard]] std::optional<Clock::time_point> lastActivity() const { return m_lastActivity; }

    /// The end of the transfer after curl's result for the handle, or nothing if there is a
    /// redirect to follow: then the next handle is for its target.
    [[nodiscard]] std::optional<HttpOutcome> conclude(int result);

    /// Whether the answer came over a connection that takes many requests at once.
    [[nodiscard]] bool isMultiplexed() const;

    void end(HttpOutcome outcome) { m_onEnd(std::move(outcome)); }

private:
    struct Callbacks;
    struct HandleCleanup {
        void operator()(void* handle) const;
    };

    [[nodiscard]] std::optional<std::string> redirectLocation() const;
    [[nodiscard]] TransportError tooLarge() const;

    HttpTarget m_target;
    Bounds m_bounds;
    HttpClient::BodyHandler m_onBody;
    HttpClient::Completion m_onEnd;
    const HttpSettings* m_settings = nullptr;
    const std::atomic<bool>* m_isEnding = nullptr;

    int m_redirects = 0;
    std::chrono::milliseconds m_timeUsed{0}; // up to the present target
    Clock::time_point m_began;
    std::optional<Clock::time_point> m_lastActivity;
    std::uint64_t m_headerBytes = 0;
    std::uint64_t m_bodyBytes = 0;
    int m_compressions = 0;                  // that the answer is said to have gone through
    std::optional<bool> m_isBodyWanted;      // known once the headers are there
    std::optional<TransportError> m_failure; // why we ended it ourselves

    static constexpr std::size_t errorSize = 256; // curl's CURL_ERROR_SIZE
    std::array<char, errorSize> m_error{};
    std::unique_ptr<void, HandleCleanup> m_handle; // last: its end may still write into the above
};

} // namespace veridane
