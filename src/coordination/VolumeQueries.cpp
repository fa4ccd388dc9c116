#include "coordination/VolumeQueries.h"

#include "platform/OperatingSystem.h"
#include "platform/PropertyList.h"

namespace veridane {
namespace {

constexpr const char* systemVersionFile = "/System/Library/CoreServices/SystemVersion.plist";
constexpr std::uint64_t largestVersionFile = 1 << 20;

std::optional<std::string> versionOnVolume(const FileSystem& files) {
    const auto bytes = files.readWhole(Path(systemVersionFile), largestVersionFile);
    if (!bytes)
        return std::nullopt;
    const auto list = PropertyList::parse(ByteView(*bytes));
    if (!list)
        return std::nullopt;
    const auto version = list->text("ProductVersion");
    if (!version)
        return std::nullopt;
    const auto build = list->text("ProductBuildVersion");
    return "Version " + *version + (build ? " (Build " + *build + ")" : "");
}

} // namespace

std::optional<std::int32_t> VolumeQueries::arm64Capability() const {
    return std::nullopt;
}

bool VolumeQueries::exists(const Path& path) const {
    return m_files.exists(path);
}

bool VolumeQueries::isReadable(const Path& path) const {
    return m_files.isReadable(path);
}

std::string VolumeQueries::osVersion() const {
    if (const auto version = versionOnVolume(m_files))
        return *version;
    return operatingSystemName();
}

} // namespace veridane
