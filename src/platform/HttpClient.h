#pragma once

#include "platform/Url.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace veridane {

/// The server has answered to the end. What it means by that is in the status.
struct HttpStatus {
    int code = 0;

    [[nodiscard]] bool isSuccess() const { return code >= 200 && code <= 299; }

    bool operator==(const HttpStatus&) const = default;
};

/// No answer, or none to its end.
struct TransportError {
    std::string description;            // for people, in the transport library's English
    std::optional<std::uint64_t> limit; // bytes; only if the body would be larger than these

    bool operator==(const TransportError&) const = default;
};

using HttpOutcome = std::variant<HttpStatus, TransportError>;

/// What to fetch, within which bounds. Without them those of the client hold; they can only be
/// narrowed.
struct HttpRequest {
    Url url;
    std::optional<std::chrono::milliseconds> duration{}; // of the whole transfer, once it runs
    std::optional<std::uint64_t> largestBody{};          // bytes, after decompression
};

/// Fetches documents over HTTP, many at a time.
class HttpClient {
public:
    /// A piece of the answer's body, decompressed, in order.
    using BodyHandler = std::function<void(std::string_view)>;
    using Completion = std::function<void(HttpOutcome)>;

    virtual ~HttpClient() = default;

    /// Starts a GET and returns at once; redirects are followed, and `onBody` gets the body of the
    /// last answer alone. It may have got a part of it before a `TransportError`. Both functions
    /// are called on a thread of the client, one call at a time; `onEnd` is the last call and comes
    /// once, unless the client is destroyed before: then neither is called any more. They should
    /// be quick, because all transfers wait for them, and may call `get`, but not destroy the
    /// client. Safe on any thread.
    virtual void get(const HttpRequest& request, BodyHandler onBody, Completion onEnd) = 0;
};

} // namespace veridane
