#pragma once

#include "platform/HttpClient.h"
#include "platform/Url.h"

#include <string>
#include <utility>
#include <variant>

namespace veridane {

/// Where a request goes: an absolute http or https URL with a host, without a user's name, a
/// password and a fragment.
class HttpTarget {
public:
    using OrError = std::variant<HttpTarget, TransportError>;

    /// An error for everything that is no such URL; a missing scheme is not guessed.
    [[nodiscard]] static OrError of(const Url& url);

    /// Where the Location of an answer from here leads. A server may have written anything into it:
    /// blanks and characters outside of ASCII are escaped, control characters are an error.
    [[nodiscard]] OrError redirected(const std::string& location) const;

    [[nodiscard]] const std::string& url() const { return m_url; }

    /// Scheme, host and port: what connections are counted by.
    [[nodiscard]] const std::string& origin() const { return m_origin; }

private:
    HttpTarget(std::string url, std::string origin)
        : m_url(std::move(url)), m_origin(std::move(origin)) {}

    static OrError resolved(const std::string* base, const std::string& reference);

    std::string m_url;
    std::string m_origin;
};

} // namespace veridane
