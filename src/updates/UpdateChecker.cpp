#include "updates/UpdateChecker.h"

#include "platform/Language.h"
#include "updates/AppcastParser.h"
#include "updates/StoreLookup.h"
#include "updates/VersionRule.h"

#include <memory>
#include <optional>
#include <utility>
#include <variant>

namespace veridane::UpdateChecker {
namespace {

using Text = std::optional<std::string>;

UpdateCheckResult resultOf(const TransportError& error) {
    if (error.limit)
        return UpdateCheckResult::failed(localized("Antwort zu groß"));
    return UpdateCheckResult::failed(error.description);
}

UpdateCheckResult judged(bool isNewer, std::string latest) {
    return isNewer ? UpdateCheckResult::updateAvailable(std::move(latest))
                   : UpdateCheckResult::upToDate(std::move(latest));
}

/// Build numbers decide where both sides have one, even if the short versions disagree.
bool isNewerThan(const AppcastEntry& entry, const Text& installedVersion,
                 const Text& installedBuild) {
    if (entry.version && installedBuild)
        return isNewer(*entry.version, *installedBuild);
    if (entry.shortVersion && installedVersion)
        return isNewer(*entry.shortVersion, *installedVersion);
    return false;
}

UpdateCheckResult feedResult(HttpStatus status, const std::optional<AppcastEntry>& entry,
                             const Text& installedVersion, const Text& installedBuild) {
    if (!status.isSuccess())
        return UpdateCheckResult::failed("HTTP " + std::to_string(status.code));
    if (!entry)
        return UpdateCheckResult::failed(localized("Appcast nicht lesbar"));
    const std::string latest = entry->shortVersion.value_or(entry->version.value_or("?"));
    return judged(isNewerThan(*entry, installedVersion, installedBuild), latest);
}

void fetchAppcast(const Url& url, const Text& installedVersion, const Text& installedBuild,
                  HttpClient& client, OnResult onResult) {
    const auto parser = std::make_shared<AppcastParser>();
    client.get(
        {url}, [parser](std::string_view piece) { parser->feed(piece); },
        [parser, installedVersion, installedBuild,
         onResult = std::move(onResult)](const HttpOutcome& outcome) {
            if (const auto* error = std::get_if<TransportError>(&outcome))
                return onResult(resultOf(*error));
            onResult(feedResult(std::get<HttpStatus>(outcome), parser->finish(), installedVersion,
                                installedBuild));
        });
}

UpdateCheckResult storeResult(std::string_view body, const Text& installedVersion) {
    auto latest = storeVersion(body);
    if (!latest)
        return UpdateCheckResult::noFeed();
    const bool newer = installedVersion && isNewer(*latest, *installedVersion);
    return judged(newer, *std::move(latest));
}

void lookupAppStore(const Text& bundleIdentifier, const Text& installedVersion,
                    const Sources& sources, OnResult onResult) {
    const auto url =
        bundleIdentifier ? storeLookupUrl(sources.storeLookup, *bundleIdentifier) : std::nullopt;
    if (!url)
        return onResult(UpdateCheckResult::noFeed());
    const auto body = std::make_shared<std::string>();
    sources.client.get(
        {*url}, [body](std::string_view piece) { *body += piece; },
        [body, installedVersion, onResult = std::move(onResult)](const HttpOutcome& outcome) {
            if (const auto* error = std::get_if<TransportError>(&outcome))
                return onResult(resultOf(*error));
            // Whatever the status: a page of an error is no usable answer either.
            onResult(storeResult(*body, installedVersion));
        });
}

} // namespace

bool hasSource(const ScanItem& item) {
    return item.updateSource == UpdateSource::macAppStore ||
           item.updateSource == UpdateSource::sparkle;
}

void check(const ScanItem& item, const Sources& sources, OnResult onResult) {
    if (item.updateSource == UpdateSource::macAppStore)
        return lookupAppStore(item.bundleIdentifier, item.version, sources, std::move(onResult));
    const auto feed = item.updateSource == UpdateSource::sparkle && item.sparkleFeedURL
                          ? Url::parse(*item.sparkleFeedURL)
                          : std::nullopt;
    if (!feed)
        return onResult(UpdateCheckResult::noFeed());
    fetchAppcast(*feed, item.version, item.buildNumber, sources.client, std::move(onResult));
}

} // namespace veridane::UpdateChecker
