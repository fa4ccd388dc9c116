#include "cli/Volume.h"

#include "platform/UserDirectories.h"

namespace veridane::cli {
namespace {

std::vector<Path> ownHome() {
    const auto home = homeDirectory();
    return home ? std::vector{Path(*home)} : std::vector<Path>();
}

bool isDirectory(const FileSystem& files, const Path& path) {
    const auto values = files.targetValues(path);
    return values && values->type == EntryType::directory;
}

} // namespace

std::unique_ptr<FileSystem> openVolume(const std::optional<std::string>& directory,
                                       const Console& console) {
    auto files = std::make_unique<FileSystem>(directory.value_or("/"));
    // Not by listing it: a root that may only be gone through can be scanned all the same.
    if (isDirectory(*files, Path("/")))
        return files;
    complain(console, directory.value_or("/") + " is no folder that can be read");
    return nullptr;
}

std::optional<SearchLocations> searchLocations(const FileSystem& files,
                                               const std::vector<std::string>& homes,
                                               bool isMounted, const Console& console) {
    if (homes.empty())
        return SearchLocations(isMounted ? SearchLocations::homesOnVolume(files) : ownHome());
    std::vector<Path> paths;
    for (const std::string& home : homes) {
        if (!home.starts_with('/') || !isDirectory(files, Path(home))) {
            complain(console, "--home: " + home + " is no folder on the volume");
            return std::nullopt;
        }
        paths.emplace_back(home);
    }
    return SearchLocations(std::move(paths));
}

} // namespace veridane::cli
