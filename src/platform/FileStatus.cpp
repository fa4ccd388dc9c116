#include "platform/FileStatus.h"

#include "platform/SystemCalls.h"

#include <fcntl.h>

#include <chrono>

namespace veridane {

std::optional<FileStatus> FileStatus::of(int folder, const char* name) {
    FileStatus result;
    const auto ask = [&] {
        return ::fstatat(folder, name, &result.m_status, AT_SYMLINK_NOFOLLOW);
    };
    if (uninterrupted(ask) != 0)
        return std::nullopt;
    return result;
}

std::optional<FileStatus> FileStatus::of(int descriptor) {
    FileStatus result;
    if (uninterrupted([&] { return ::fstat(descriptor, &result.m_status); }) != 0)
        return std::nullopt;
    return result;
}

EntryType FileStatus::type() const {
    if (S_ISREG(m_status.st_mode))
        return EntryType::regularFile;
    if (S_ISDIR(m_status.st_mode))
        return EntryType::directory;
    if (S_ISLNK(m_status.st_mode))
        return EntryType::symbolicLink;
    return EntryType::other;
}

std::optional<Date> FileStatus::modificationDate() const {
    using namespace std::chrono;
#ifdef __APPLE__
    const timespec& time = m_status.st_mtimespec;
#else
    const timespec& time = m_status.st_mtim;
#endif
    // A damaged disk can hold any number of seconds; nanoseconds since 1970 hold 292 years.
    constexpr auto latest = duration_cast<seconds>(Date::max().time_since_epoch()).count() - 1;
    if (time.tv_sec > latest || time.tv_sec < -latest)
        return std::nullopt;
    return Date(seconds(time.tv_sec) + nanoseconds(time.tv_nsec));
}

} // namespace veridane
