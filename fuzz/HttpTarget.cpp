#include "platform/HttpTarget.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

namespace {

using veridane::HttpTarget;
using veridane::Url;

// What is asked over the network is http or https, tells nobody's name and password, and is a URL
// that leads to itself.
void check(const HttpTarget::OrError& result) {
    const auto* target = std::get_if<HttpTarget>(&result);
    if (!target)
        return;
    const std::string& text = target->url();
    const bool isWeb = text.starts_with("http://") || text.starts_with("https://");
    const std::string_view authority = std::string_view(text).substr(0, text.find('/', 8));
    const auto url = Url::parse(text);
    if (!isWeb || authority.find('@') != std::string_view::npos || !url)
        std::abort();
    const auto again = HttpTarget::of(*url);
    const auto* same = std::get_if<HttpTarget>(&again);
    if (!same || same->url() != text || same->origin() != target->origin())
        std::abort();
}

} // namespace

// The first line is the address of a feed, the rest what its server answers as the new place.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto lineEnd = input.find('\n');
    const auto url = Url::parse(input.substr(0, lineEnd));
    if (!url)
        return 0;
    const auto first = HttpTarget::of(*url);
    check(first);
    const auto* target = std::get_if<HttpTarget>(&first);
    if (target && lineEnd != std::string_view::npos)
        check(target->redirected(std::string(input.substr(lineEnd + 1))));
    return 0;
}
