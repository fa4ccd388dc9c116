#include "coordination/ProgramVersion.h"

#include "platform/PropertyList.h"
#include "platform/Version.h"

#include <optional>
#include <string_view>

namespace veridane {
namespace {

/// What describes the bundle of an executable, if there is one around it.
std::optional<Path> propertyListBeside(const Path& executable) {
    const std::string_view program = executable.bytes();
    const std::string_view folder = program.substr(0, program.rfind('/'));
    constexpr std::string_view inBundle = "/Contents/MacOS";
    if (!folder.ends_with(inBundle))
        return std::nullopt;
    return Path(folder.substr(0, folder.size() - inBundle.size())) / "Contents/Info.plist";
}

std::string withBuild(const std::optional<std::string>& version,
                      const std::optional<std::string>& build) {
    return version.value_or("1.0") + " (" + build.value_or("1") + ")";
}

} // namespace

std::string programVersion(const FileSystem& files, const Path& executable) {
    const auto path = propertyListBeside(executable);
    if (!path || !files.exists(*path))
        return withBuild(productVersion, std::nullopt);
    const auto list = PropertyList::read(files, *path);
    if (!list)
        return withBuild(std::nullopt, std::nullopt);
    return withBuild(list->text("CFBundleShortVersionString"), list->text("CFBundleVersion"));
}

} // namespace veridane
