#pragma once

#include "coordination/SystemInfo.h"
#include "platform/FileSystem.h"

#include <cstdint>
#include <optional>
#include <string>

namespace veridane {

/// Asks the files of the examined volume, and this machine only where they do not tell.
class VolumeQueries : public SystemQueries {
public:
    /// `files` must outlive this object.
    explicit VolumeQueries(const FileSystem& files) : m_files(files) {}

    /// A disk does not tell which processor its Mac has, and this machine need not be that Mac.
    [[nodiscard]] std::optional<std::int32_t> arm64Capability() const override;
    [[nodiscard]] bool exists(const Path& path) const override;
    [[nodiscard]] bool isReadable(const Path& path) const override;

    /// "Version 14.5 (Build 23F79)" from the volume's SystemVersion.plist, else the running
    /// system's own name for itself.
    [[nodiscard]] std::string osVersion() const override;

private:
    const FileSystem& m_files;
};

} // namespace veridane
