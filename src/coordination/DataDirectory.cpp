#include "coordination/DataDirectory.h"

#include "platform/Digest.h"
#include "platform/PercentEncoding.h"
#include "platform/UserDirectories.h"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

namespace veridane {
namespace {

constexpr std::size_t maxFileNameSize = 255;

/// Absolute and without links. Where the disk is not mounted now, as far as the text alone goes.
std::optional<std::string> resolved(const std::string& directory) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(directory.c_str(), nullptr),
                                                           &std::free);
    if (real)
        return real.get();
    std::error_code error;
    const auto absolute = std::filesystem::absolute(directory, error);
    if (error)
        return std::nullopt;
    std::string text = absolute.lexically_normal().string();
    while (text.size() > 1 && text.ends_with('/'))
        text.pop_back();
    return text;
}

/// The path as one file name, a different one for each path.
std::optional<std::string> fileNameOf(const std::string& path) {
    std::string name = percentEncoded(path, PercentEncoding::fileName);
    if (name.size() <= maxFileNameSize)
        return name;
    const auto digest = sha256(path);
    if (!digest)
        return std::nullopt;
    // No path gives a "+" by itself, so that a short one cannot pose as a long one.
    const std::string tail = "+" + *digest;
    std::size_t end = maxFileNameSize - tail.size();
    const std::size_t escape = name.rfind('%', end - 1);
    if (escape != std::string::npos && escape + 3 > end)
        end = escape;
    return name.substr(0, end) + tail;
}

} // namespace

std::optional<std::string> dataDirectory(const std::optional<std::string>& volume) {
    const auto userData = userDataDirectory();
    if (!userData)
        return std::nullopt;
    const std::string own = *userData + "/Veridane";
    if (!volume)
        return own;
    const auto path = resolved(*volume);
    const auto name = path ? fileNameOf(*path) : std::nullopt;
    if (!name)
        return std::nullopt;
    return own + "/Volumes/" + *name;
}

} // namespace veridane
