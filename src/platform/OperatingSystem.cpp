#include "platform/OperatingSystem.h"

#include "platform/FileSystem.h"
#include "platform/Text.h"

#include <sys/utsname.h>

#include <optional>
#include <string_view>

namespace veridane {
namespace {

constexpr std::uint64_t largestReleaseFile = 1 << 16;

/// The file is a list of shell assignments: the value may stand in quotes, with backslashes.
std::string unquoted(std::string_view value) {
    const bool isQuoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                          value.back() == value.front();
    if (isQuoted)
        value = value.substr(1, value.size() - 2);
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size())
            ++i;
        text += value[i];
    }
    return text;
}

std::optional<std::string> prettyName(std::string_view release) {
    constexpr std::string_view key = "PRETTY_NAME=";
    while (!release.empty()) {
        const std::string_view line = release.substr(0, release.find('\n'));
        if (line.starts_with(key))
            return text::validUtf8(unquoted(line.substr(key.size())));
        release.remove_prefix(std::min(line.size() + 1, release.size()));
    }
    return std::nullopt;
}

} // namespace

std::string operatingSystemName() {
    const FileSystem files("/");
    for (const char* path : {"/etc/os-release", "/usr/lib/os-release"}) {
        const auto bytes = files.readWhole(Path(path), largestReleaseFile);
        if (!bytes)
            continue;
        if (auto name = prettyName({reinterpret_cast<const char*>(bytes->data()), bytes->size()}))
            return *std::move(name);
    }
    struct utsname kernel {};
    if (::uname(&kernel) != 0)
        return {};
    return std::string(kernel.sysname) + " " + kernel.release;
}

} // namespace veridane
