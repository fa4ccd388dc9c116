#include "coordination/MakerSite.h"

#include "platform/Environment.h"

namespace veridane::MakerSite {

std::string root() {
    return Environment::service("VERIDANE_SITE", "https://mirefold.example");
}

std::string page(std::string_view path) {
    return root().append(path);
}

} // namespace veridane::MakerSite
