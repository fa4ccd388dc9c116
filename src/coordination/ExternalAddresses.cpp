#include "coordination/ExternalAddresses.h"

#include "platform/PercentEncoding.h"

namespace veridane::ExternalAddresses {
namespace {

std::string inQuery(std::string_view text) {
    return percentEncoded(text, PercentEncoding::urlQuery);
}

} // namespace

std::string fullDiskAccessSettings() {
    return "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles";
}

std::string nativeVersionSearch(const ScanItem& item) {
    const std::string vendor = item.vendor ? *item.vendor + " " : "";
    return "https://duckduckgo.com/?q=" + inQuery(vendor + item.name + " Apple Silicon macOS");
}

std::string appStoreSearch(const ScanItem& item) {
    return "macappstore://apps.apple.com/search?term=" + inQuery(item.name);
}

} // namespace veridane::ExternalAddresses
