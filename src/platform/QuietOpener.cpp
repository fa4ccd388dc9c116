#include "platform/QuietOpener.h"

#include "platform/SystemCalls.h"

#include <fcntl.h>
#ifdef __linux__
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

#include <cerrno>

namespace veridane {
namespace {

constexpr int always = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
#ifdef O_NOATIME
constexpr int withoutAccessTime = O_NOATIME;
#else
constexpr int withoutAccessTime = 0;
#endif
#ifdef O_PATH
constexpr int search = O_PATH;
#else
constexpr int search = O_SEARCH;
#endif

Descriptor openAt(int folder, const char* name, int flags) {
    return Descriptor(uninterrupted([&] { return ::openat(folder, name, flags); }));
}

} // namespace

bool isOutOfDescriptors(int error) {
    return error == EMFILE || error == ENFILE;
}

Descriptor QuietOpener::open(int folder, const char* name, int flags) const {
    if (withoutAccessTime != 0 && m_keepsAccessTimes.load(std::memory_order_relaxed)) {
        Descriptor quiet = openAt(folder, name, flags | withoutAccessTime);
        if (quiet || errno != EPERM)
            return quiet;
        // Only an owner may ask for this. A disk of somebody else's would refuse it at every file.
        m_keepsAccessTimes.store(false, std::memory_order_relaxed);
    }
    return openAt(folder, name, flags);
}

Descriptor QuietOpener::file(int folder, const char* name) const {
    return open(folder, name, always);
}

Descriptor QuietOpener::folder(int folder, const char* name) const {
    return open(folder, name, always | O_DIRECTORY);
}

Descriptor QuietOpener::passage(int folder, const char* name) const {
    return openAt(folder, name, search | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
}

Descriptor QuietOpener::root(const char* path) const {
    return openAt(AT_FDCWD, path, search | O_DIRECTORY | O_CLOEXEC);
}

Descriptor QuietOpener::straightPassage([[maybe_unused]] int folder,
                                        [[maybe_unused]] const char* path) const {
#ifdef SYS_openat2
    if (m_canGoStraight.load(std::memory_order_relaxed)) {
        open_how how{};
        how.flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
        how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS;
        Descriptor found(static_cast<int>(
            uninterrupted([&] { return ::syscall(SYS_openat2, folder, path, &how, sizeof how); })));
        if (found || errno != ENOSYS)
            return found;
        m_canGoStraight.store(false, std::memory_order_relaxed);
    }
#endif
    errno = ENOSYS;
    return {};
}

} // namespace veridane
