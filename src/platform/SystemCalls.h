#pragma once

#include "platform/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>

/// What those who read and write files ask of the system. A failure leaves its reason in `errno`.
namespace veridane {

/// Calls until no signal comes in between.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

[[nodiscard]] inline Descriptor openForWriting(const std::string& path, int flags = 0,
                                               mode_t mode = 0) {
    return Descriptor(uninterrupted(
        [&] { return ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | flags, mode); }));
}

/// Network file systems report a full disk only here.
[[nodiscard]] inline bool closeChecked(Descriptor file) {
    // Not repeated after a signal: the descriptor is gone all the same.
    return ::close(file.release()) == 0 || errno == EINTR;
}

} // namespace veridane
