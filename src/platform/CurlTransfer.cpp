#include "platform/CurlTransfer.h"

#include "platform/Text.h"
#include "platform/Version.h"

#include <curl/curl.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace veridane {
namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;

bool isRedirect(long status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

long statusOf(CURL* handle) {
    long status = 0;
    curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
    return status;
}

/// The certificates come from one file where there is one. curl reads them once for all transfers
/// then; with a folder beside the file it would do so for each connection, which takes 20 ms.
void trustAuthorities(CURL* handle, const std::optional<std::string>& caFile) {
    const char* systemFile = nullptr;
    if (caFile)
        curl_easy_setopt(handle, CURLOPT_CAINFO, caFile->c_str());
    else if (curl_easy_getinfo(handle, CURLINFO_CAINFO, &systemFile) != CURLE_OK || !systemFile ||
             ::access(systemFile, R_OK) != 0)
        return;
    curl_easy_setopt(handle, CURLOPT_CAPATH, nullptr);
}

/// How many compressions a line of the headers names.
int compressionsIn(std::string_view line) {
    const std::size_t colon = std::min(line.find(':'), line.size());
    const std::string name = text::lowercased(line.substr(0, colon));
    if (name != "content-encoding" && name != "transfer-encoding")
        return 0;
    int count = 0;
    for (std::string_view rest = line.substr(colon); !rest.empty();) {
        rest.remove_prefix(1); // the colon or comma
        const std::size_t end = std::min(rest.find(','), rest.size());
        const std::string coding = text::lowercased(text::trimmed(rest.substr(0, end)));
        rest.remove_prefix(end);
        count += !coding.empty() && coding != "chunked" && coding != "identity";
    }
    return count;
}

} // namespace

/// What curl calls while it works on a handle. Taking less than is offered ends the transfer.
struct CurlTransfer::Callbacks {
    static int beforeRequest(void* user, char*, char*, int, int) {
        static_cast<CurlTransfer*>(user)->m_lastActivity = Clock::now();
        return CURL_PREREQFUNC_OK;
    }

    static std::size_t header(char* data, std::size_t, std::size_t size, void* user) {
        auto& self = *static_cast<CurlTransfer*>(user);
        self.m_lastActivity = Clock::now();
        self.m_headerBytes += size;
        self.m_compressions += compressionsIn(std::string_view(data, size));
        if (self.m_headerBytes > self.m_settings->largestHeaders)
            self.m_failure = TransportError{"Headers of the answer are too large", std::nullopt};
        // One that is wrapped in others can keep us busy for hours with a few kilobytes, and yet
        // have no contents whose size could be limited.
        else if (self.m_compressions > 1)
            self.m_failure =
                TransportError{curl_easy_strerror(CURLE_BAD_CONTENT_ENCODING), std::nullopt};
        return self.m_failure ? 0 : size;
    }

    static std::size_t body(char* data, std::size_t, std::size_t size, void* user) {
        auto& self = *static_cast<CurlTransfer*>(user);
        if (*self.m_isEnding)
            return 0;
        self.m_lastActivity = Clock::now();
        self.m_bodyBytes += size;
        if (self.m_bodyBytes > self.m_bounds.largestBody) {
            self.m_failure = self.tooLarge();
            return 0;
        }
        if (!self.m_isBodyWanted)
            self.m_isBodyWanted = !self.redirectLocation();
        if (*self.m_isBodyWanted)
            self.m_onBody(std::string_view(data, size));
        return size;
    }
};

void CurlTransfer::HandleCleanup::operator()(void* handle) const {
    curl_easy_cleanup(handle);
}

CurlTransfer::CurlTransfer(HttpTarget target, const Bounds& bounds, HttpClient::BodyHandler onBody,
                           HttpClient::Completion onEnd)
    : m_target(std::move(target)), m_bounds(bounds), m_onBody(std::move(onBody)),
      m_onEnd(std::move(onEnd)) {
    static_assert(errorSize >= CURL_ERROR_SIZE);
}

void* CurlTransfer::begin(const HttpSettings& settings, const std::atomic<bool>& isEnding) {
    m_settings = &settings;
    m_isEnding = &isEnding;
    m_began = Clock::now();
    m_headerBytes = m_bodyBytes = 0;
    m_compressions = 0;
    m_isBodyWanted.reset();
    m_error[0] = '\0';
    m_handle.reset(curl_easy_init());
    CURL* const handle = m_handle.get();
    if (!handle)
        return nullptr;

    curl_easy_setopt(handle, CURLOPT_URL, m_target.url().c_str());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_2TLS});
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, "gzip");
    curl_easy_setopt(handle, CURLOPT_USERAGENT,
                     (std::string("Veridane/") + productVersion).c_str());
    trustAuthorities(handle, settings.caFile);
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    // Without this, ending a transfer waits until the system's resolver has given up.
    curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(handle, CURLOPT_ERRORBUFFER, m_error.data());

    // curl divides this among the addresses of a host.
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, long{settings.silence.count()});
    const milliseconds left = std::max(m_bounds.duration - m_timeUsed, milliseconds(1)); // 0: none
    curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, long{left.count()});
    // Somebody's feed may lead to a disk image: its stated length is enough to leave it alone.
    curl_easy_setopt(handle, CURLOPT_MAXFILESIZE_LARGE,
                     static_cast<curl_off_t>(m_bounds.largestBody));

    curl_easy_setopt(handle, CURLOPT_PREREQFUNCTION, &Callbacks::beforeRequest);
    curl_easy_setopt(handle, CURLOPT_PREREQDATA, this);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, &Callbacks::header);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &Callbacks::body);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
    return handle;
}

std::optional<HttpOutcome> CurlTransfer::conclude(int result) {
    m_lastActivity.reset();
    m_timeUsed += duration_cast<milliseconds>(Clock::now() - m_began);
    if (m_failure)
        return *m_failure;
    if (result == CURLE_FILESIZE_EXCEEDED)
        return tooLarge();
    if (result != CURLE_OK) {
        std::string_view reason = m_error.data();
        // A proxy's address that curl cannot use is quoted with its password, and reports get
        // passed on. Nothing else in these texts holds an "@".
        if (reason.empty() || reason.find('@') != std::string_view::npos)
            reason = curl_easy_strerror(static_cast<CURLcode>(result));
        return TransportError{text::printable(reason), std::nullopt};
    }

    const auto location = redirectLocation();
    if (!location)
        return HttpStatus{static_cast<int>(statusOf(m_handle.get()))};
    if (m_redirects++ == m_settings->redirects)
        return TransportError{curl_easy_strerror(CURLE_TOO_MANY_REDIRECTS), std::nullopt};
    auto next = m_target.redirected(*location);
    if (const auto* error = std::get_if<TransportError>(&next))
        return TransportError{"Redirect failed: " + error->description, std::nullopt};
    m_target = std::get<HttpTarget>(std::move(next));
    return std::nullopt;
}

bool CurlTransfer::isMultiplexed() const {
    long version = CURL_HTTP_VERSION_NONE;
    curl_easy_getinfo(m_handle.get(), CURLINFO_HTTP_VERSION, &version);
    return version == CURL_HTTP_VERSION_2_0;
}

// curl's own following would escape our look at the target, and its CURLINFO_REDIRECT_URL leaves
// blanks as they are.
std::optional<std::string> CurlTransfer::redirectLocation() const {
    curl_header* header = nullptr;
    if (!isRedirect(statusOf(m_handle.get())) ||
        curl_easy_header(m_handle.get(), "Location", 0, CURLH_HEADER, -1, &header) != CURLHE_OK)
        return std::nullopt;
    std::string_view value = header->value;
    if (value.ends_with('\r')) // curl forgets it where nothing stands before
        value.remove_suffix(1);
    return value.empty() ? std::nullopt : std::optional<std::string>(value);
}

TransportError CurlTransfer::tooLarge() const {
    return {curl_easy_strerror(CURLE_FILESIZE_EXCEEDED), m_bounds.largestBody};
}

} // namespace veridane
