#include "coordination/AppCatalogue.h"

#include "coordination/MakerSite.h"
#include "platform/HttpTarget.h"
#include "platform/Language.h"
#include "platform/Text.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace veridane::AppCatalogue {
namespace {

using Json = nlohmann::json;

// A sheet with the list is open meanwhile, and each entry becomes a row of it. The site may be a
// mirror, or not the maker's any more: nothing that it sends may hold the window up.
constexpr std::chrono::seconds patience{8};
constexpr std::uint64_t largestDocument = 1 << 20; // bytes
constexpr std::size_t mostApps = 500;
constexpr int maxDepth = 512; // what readers of JSON usually put up with; the list needs two

/// The whole document, or a discarded value.
Json documentIn(std::string_view text) {
    bool isTooDeep = false;
    const auto watch = [&](int depth, Json::parse_event_t event, const Json&) {
        const bool opens =
            event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start;
        isTooDeep = isTooDeep || (opens && depth >= maxDepth);
        return !isTooDeep;
    };
    Json document = Json::parse(text, watch, /*allow_exceptions=*/false);
    if (isTooDeep)
        return Json::value_t::discarded;
    return document;
}

const std::string* textUnder(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : found->get_ptr<const std::string*>();
}

std::optional<MirefoldApp> appIn(const Json& element) {
    if (!element.is_object())
        return std::nullopt;
    const auto* const name = textUnder(element, "name");
    const auto* const tagline = textUnder(element, "tagline");
    const auto* const url = textUnder(element, "url");
    if (!name || !tagline || !url)
        return std::nullopt;
    MirefoldApp app{*name, *tagline, *url, std::nullopt};
    const auto icon = element.find("icon");
    if (icon == element.end() || icon->is_null())
        return app;
    const auto* const iconURL = icon->get_ptr<const std::string*>();
    if (!iconURL)
        return std::nullopt;
    app.iconURL = *iconURL;
    return app;
}

/// One that the program knows by itself. Its page and its icon are named after it.
MirefoldApp known(const std::string& name, std::string tagline) {
    const std::string slug = text::lowercased(name);
    return {name, std::move(tagline), MakerSite::page("/apps/" + slug),
            MakerSite::page("/img/products/" + slug + ".png")};
}

} // namespace

void fetchRemote(HttpClient& client, std::function<void(Outcome)> onEnd) {
    const auto url = Url::parse(MakerSite::page("/apps.json"));
    if (!url)
        return onEnd(TransportError{"The site's address is none", std::nullopt});
    const auto body = std::make_shared<std::string>();
    client.get(
        {.url = *url, .duration = patience, .largestBody = largestDocument},
        [body](std::string_view piece) { *body += piece; },
        [body, onEnd = std::move(onEnd)](const HttpOutcome& outcome) {
            if (const auto* error = std::get_if<TransportError>(&outcome))
                return onEnd(*error);
            const bool isSuccess = std::get<HttpStatus>(outcome).isSuccess();
            auto apps = isSuccess ? parse(*body) : std::nullopt;
            onEnd(std::move(apps).value_or(std::vector<MirefoldApp>()));
        });
}

std::vector<MirefoldApp> builtIn() {
    return {
        known("Wollgras", localized("Aufgaben, die leicht bleiben.")),
        known("Moorlicht", localized("Bildschirmlicht, das dem Tag folgt.")),
        known("Binsenband", localized("Eine Zwischenablage mit Gedächtnis.")),
        known("Riedpost", localized("E-Mails in Ruhe beantworten.")),
        known("Schilfkante", localized("Fenster ordnen, ohne hinzusehen.")),
        known("Torfstich", localized("Speicherplatz, Schicht für Schicht zurück.")),
        known("Uferlinie", localized("Zeitpläne auf einen Blick.")),
        known("Nebelfaden", localized("Notizen, die von selbst zusammenfinden.")),
    };
}

std::string destination(const MirefoldApp& app) {
    const auto url = Url::parse(app.url);
    const bool isOfTheWeb = url && std::holds_alternative<HttpTarget>(HttpTarget::of(*url));
    return isOfTheWeb ? app.url : MakerSite::root();
}

std::optional<std::vector<MirefoldApp>> parse(std::string_view document) {
    // The library takes a zero for the end, whatever follows.
    if (document.find('\0') != std::string_view::npos)
        return std::nullopt;
    const Json list = documentIn(document);
    if (!list.is_array() || list.size() > mostApps)
        return std::nullopt;
    std::vector<MirefoldApp> apps;
    for (const Json& element : list) {
        auto app = appIn(element);
        if (!app)
            return std::nullopt;
        apps.push_back(*std::move(app));
    }
    return apps;
}

} // namespace veridane::AppCatalogue
