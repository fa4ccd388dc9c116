#include "platform/UserDirectories.h"

#include "platform/Environment.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace veridane {
namespace {

constexpr mode_t newDirectoryMode = 0700;

/// A relative path in a variable has no meaning that lasts, and counts as none.
std::optional<std::string> absolutePathIn(const char* variable) {
    auto value = Environment::variable(variable);
    return value && value->starts_with('/') ? std::move(value) : std::nullopt;
}

/// What the variable says, else a place below the home.
std::optional<std::string> directoryIn(const char* variable, const char* belowHome) {
    if (auto directory = absolutePathIn(variable))
        return directory;
    auto home = homeDirectory();
    if (home)
        *home += belowHome;
    return home;
}

bool isDirectory(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::optional<std::string> homeDirectory() {
    if (auto home = absolutePathIn("HOME"))
        return home;
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 16384> texts; // of one entry
    if (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) != 0 || !found)
        return std::nullopt;
    if (entry.pw_dir == nullptr || *entry.pw_dir != '/')
        return std::nullopt;
    return entry.pw_dir;
}

std::optional<std::string> userDataDirectory() {
#ifdef __APPLE__
    auto home = homeDirectory();
    if (home)
        *home += "/Library/Application Support";
    return home;
#else
    return directoryIn("XDG_DATA_HOME", "/.local/share");
#endif
}

std::optional<std::string> userConfigDirectory() {
    return directoryIn("XDG_CONFIG_HOME", "/.config");
}

std::optional<std::string> makeDirectories(const std::string& path) {
    std::size_t end = 0;
    while (end < path.size()) {
        end = path.find('/', end + 1);
        const std::string directory = path.substr(0, end);
        if (::mkdir(directory.c_str(), newDirectoryMode) == 0)
            continue;
        // One that exists may be refused for other reasons first, as on a disk that is read-only.
        const int error = errno == EEXIST ? ENOTDIR : errno;
        if (!isDirectory(directory))
            return std::generic_category().message(error);
    }
    return std::nullopt;
}

} // namespace veridane
