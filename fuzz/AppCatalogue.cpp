#include "coordination/AppCatalogue.h"

#include "platform/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using veridane::MirefoldApp;

namespace {

std::string written(const std::vector<MirefoldApp>& apps) {
    auto list = nlohmann::json::array();
    for (const MirefoldApp& app : apps) {
        auto& element = list.emplace_back(nlohmann::json{
            {"name", app.name}, {"tagline", app.tagline}, {"url", app.url}, {"icon", nullptr}});
        if (app.iconURL)
            element["icon"] = *app.iconURL;
    }
    return list.dump();
}

} // namespace

// What is read is valid text, and reads the same when it is written again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view document(reinterpret_cast<const char*>(data), size);
    const auto apps = veridane::AppCatalogue::parse(document);
    if (!apps)
        return 0;
    const auto isValid = [](const MirefoldApp& app) {
        const std::string all = app.name + app.tagline + app.url + app.iconURL.value_or("");
        return veridane::text::validUtf8(all) == all;
    };
    if (!std::ranges::all_of(*apps, isValid) ||
        veridane::AppCatalogue::parse(written(*apps)) != apps)
        std::abort();
    return 0;
}
