#include "scan/ExaminedVolume.h"

#include "platform/StandardDescriptors.h"
#include "platform/UserDirectories.h"

#include <utility>

namespace veridane {
namespace {

// A path, a folder in it and a file in that take five; the rest makes a deep bundle quick.
constexpr std::size_t neededFiles = 16;

std::vector<Path> ownHome() {
    const auto home = homeDirectory();
    return home ? std::vector{Path(*home)} : std::vector<Path>();
}

bool isDirectory(const FileSystem& files, const Path& path) {
    const auto values = files.targetValues(path);
    return values && values->type == EntryType::directory;
}

} // namespace

std::variant<ExaminedVolume, VolumeError> openVolume(const std::optional<std::string>& directory,
                                                     const std::vector<std::string>& homes) {
    if (!canOpenFiles(neededFiles))
        return VolumeError{"too few files may be open at the same time"};
    auto files = std::make_unique<const FileSystem>(directory.value_or("/"));
    // Not by listing it: a root that may only be gone through can be scanned all the same.
    if (!isDirectory(*files, Path()))
        return VolumeError{directory.value_or("/") + " is no folder that can be read"};

    std::vector<Path> paths;
    for (const std::string& home : homes) {
        if (!home.starts_with('/') || !isDirectory(*files, Path(home)))
            return VolumeError{"--home: " + home + " is no folder on the volume"};
        paths.emplace_back(home);
    }
    if (homes.empty())
        paths = directory ? SearchLocations::homesOnVolume(*files) : ownHome();
    return ExaminedVolume{std::move(files), SearchLocations(std::move(paths))};
}

} // namespace veridane
