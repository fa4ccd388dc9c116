#include "coordination/SystemInfo.h"

#include "platform/Path.h"

#include <algorithm>
#include <array>

namespace veridane {
namespace {

// The processor family that this program was built for stands in for one that cannot be asked.
#if defined(__aarch64__) || defined(__arm64__)
constexpr bool isArm64Build = true;
#else
constexpr bool isArm64Build = false;
#endif

constexpr std::array<const char*, 3> rosettaPaths = {
    "/Library/Apple/usr/libexec/oah/libRosettaRuntime",
    "/Library/Apple/usr/share/rosetta",
    "/Library/Apple/usr/libexec/oah/RosettaLinux",
};

constexpr const char* guardedFile = "/Library/Application Support/com.apple.TCC/TCC.db";

} // namespace

SystemInfo SystemInfo::current(const SystemQueries& queries) {
    const auto capability = queries.arm64Capability();
    return {
        // Asks the hardware: an Intel build under translation still gets the right answer.
        .isAppleSilicon = capability ? *capability == 1 : isArm64Build,
        .rosettaInstalled = std::ranges::any_of(
            rosettaPaths, [&](const char* path) { return queries.exists(Path(path)); }),
        .osVersion = queries.osVersion(),
    };
}

bool probeFullDiskAccess(const SystemQueries& queries) {
    return queries.isReadable(Path(guardedFile));
}

} // namespace veridane
