#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace veridane {

class Path;

/// What the examined machine is asked for.
class SystemQueries {
public:
    virtual ~SystemQueries() = default;

    /// The value of the kernel's "hw.optional.arm64"; nothing where the query fails.
    [[nodiscard]] virtual std::optional<std::int32_t> arm64Capability() const = 0;

    /// Whether something stands at the path.
    [[nodiscard]] virtual bool exists(const Path& path) const = 0;

    /// Whether this process may read what stands at the path.
    [[nodiscard]] virtual bool isReadable(const Path& path) const = 0;

    /// The system's name and version for people.
    [[nodiscard]] virtual std::string osVersion() const = 0;
};

/// Facts that shape what the user is told. Read once.
struct SystemInfo {
    bool isAppleSilicon = false;
    bool rosettaInstalled = false; // its files are on the disk; says nothing of the processor
    std::string osVersion;

    [[nodiscard]] static SystemInfo current(const SystemQueries& queries);

    bool operator==(const SystemInfo&) const = default;
};

/// Whether this process seems to have full disk access: whether it may read a file that the
/// system's privacy control guards.
[[nodiscard]] bool probeFullDiskAccess(const SystemQueries& queries);

} // namespace veridane
