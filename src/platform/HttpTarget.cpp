#include "platform/HttpTarget.h"

#include "platform/Text.h"

#include <curl/curl.h>

#include <memory>

namespace veridane {
namespace {

struct UrlCleanup {
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using CurlUrl = std::unique_ptr<CURLU, UrlCleanup>;

TransportError failure(CURLUcode code) {
    return {curl_url_strerror(code), std::nullopt};
}

/// Empty for a part that is not there.
std::string part(const CurlUrl& url, CURLUPart what, unsigned flags = 0) {
    char* text = nullptr;
    if (curl_url_get(url.get(), what, &text, flags) != CURLUE_OK)
        return {};
    const std::unique_ptr<char, void (*)(void*)> owner(text, curl_free);
    return text;
}

bool hasControlCharacters(const std::string& text) {
    for (const char c : text)
        if ((c >= 0 && c < ' ') || c == '\x7f')
            return true;
    return false;
}

/// A host may be escaped twice, or turn into an address in numbers when its escapes are resolved.
/// Whoever reads such a URL again ends up elsewhere.
bool leadsToItself(const Url& url) {
    const CurlUrl again(curl_url());
    return again && curl_url_set(again.get(), CURLUPART_URL, url.text().c_str(), 0) == CURLUE_OK &&
           part(again, CURLUPART_URL) == url.text();
}

} // namespace

HttpTarget::OrError HttpTarget::of(const Url& url) {
    return resolved(nullptr, url.text());
}

HttpTarget::OrError HttpTarget::redirected(const std::string& location) const {
    return resolved(&m_url, location);
}

HttpTarget::OrError HttpTarget::resolved(const std::string* base, const std::string& reference) {
    const CurlUrl url(curl_url());
    if (!url)
        return failure(CURLUE_OUT_OF_MEMORY);
    if (hasControlCharacters(reference))
        return failure(CURLUE_MALFORMED_INPUT);
    if (base)
        curl_url_set(url.get(), CURLUPART_URL, base->c_str(), 0);
    const unsigned flags = base ? CURLU_URLENCODE | CURLU_ALLOW_SPACE : 0;
    if (const auto code = curl_url_set(url.get(), CURLUPART_URL, reference.c_str(), flags))
        return failure(code);

    const std::string scheme = part(url, CURLUPART_SCHEME);
    if (scheme != "http" && scheme != "https")
        return failure(CURLUE_UNSUPPORTED_SCHEME);
    const std::string host = part(url, CURLUPART_HOST);
    if (host.empty())
        return failure(CURLUE_NO_HOST);
    // What is not in the URL cannot be sent, not even after a further redirect.
    for (const auto secret :
         {CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_OPTIONS, CURLUPART_FRAGMENT})
        curl_url_set(url.get(), secret, nullptr, 0);

    // Escapes in a host are resolved by now, and must not have brought back what a URL cannot hold.
    const auto text = Url::parse(part(url, CURLUPART_URL));
    if (!text || !leadsToItself(*text))
        return failure(CURLUE_MALFORMED_INPUT);
    const std::string port = part(url, CURLUPART_PORT, CURLU_DEFAULT_PORT);
    return HttpTarget(text->text(), text::lowercased(scheme + "://" + host + ":" + port));
}

} // namespace veridane
