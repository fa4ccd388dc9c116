#pragma once

#include "platform/HttpClient.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace veridane {

/// Another application of the maker's. What comes from the site is kept as it came: texts of any
/// length with any characters, and addresses that may be none. Views make it printable and short.
struct MirefoldApp {
    std::string name;
    std::string tagline;                // one line of description
    std::string url;                    // its page; also what it is known by
    std::optional<std::string> iconURL; // of a picture

    bool operator==(const MirefoldApp&) const = default;
};

/// The maker's other applications, as the document apps.json of the maker's site lists them, or as
/// the program knows them by itself. Safe on any thread.
namespace AppCatalogue {

using Outcome = std::variant<std::vector<MirefoldApp>, TransportError>;

/// Asks the site and returns at once. An answer that is no success, or no such document, is an
/// empty list; one that is too large or has not ended after eight seconds is an error. `onEnd` is
/// called once, on a thread of the client or, if the site has no usable address, within the call.
/// Not at all if the client is destroyed before.
void fetchRemote(HttpClient& client, std::function<void(Outcome)> onEnd);

/// Eight of them in a fixed order, with their descriptions in the language in force.
[[nodiscard]] std::vector<MirefoldApp> builtIn();

/// Where an application leads: to its page, or to the maker's site if that is no address of the
/// web. Anything else that the site names would start some other program, or none.
[[nodiscard]] std::string destination(const MirefoldApp& app);

/// Reads the document: an array of objects with "name", "tagline", "url" and perhaps "icon", all of
/// them texts. One bad element makes all of it unusable: then there is nothing. Nor is there for a
/// list of more than 500.
[[nodiscard]] std::optional<std::vector<MirefoldApp>> parse(std::string_view document);

} // namespace AppCatalogue

} // namespace veridane
