#include "coordination/MakerSite.h"

#include <cstdlib>

namespace veridane::MakerSite {

std::string root() {
    const char* mirror = std::getenv("VERIDANE_SITE");
    if (!mirror || *mirror == '\0')
        return "https://mirefold.example";
    // People end an address in a slash, and to a server "//help" is another path.
    const std::string_view given = mirror;
    return std::string(given.substr(0, given.find_last_not_of('/') + 1));
}

std::string page(std::string_view path) {
    return root().append(path);
}

} // namespace veridane::MakerSite
