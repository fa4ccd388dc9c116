#include "platform/ReadTrouble.h"

#include <cerrno>
#include <system_error>

namespace veridane {
namespace {

bool isRefusal(int error) {
    return error == EACCES || error == EPERM;
}

} // namespace

bool isAbsence(int error) {
    switch (error) {
    case 0:
    case ENOENT:
    case ENOTDIR:
    case ELOOP: // also what opening a link without following it ends in
    case ENAMETOOLONG:
    case EINVAL:
    case ENXIO: // a socket's, or that of a device without a driver
    case ENODEV:
        return true;
    default:
        return false;
    }
}

void ReadTrouble::note(int error) {
    if (isAbsence(error))
        return;
    int known = m_error.load(std::memory_order_relaxed);
    while (known == 0 || (isRefusal(known) && !isRefusal(error))) {
        if (m_error.compare_exchange_weak(known, error, std::memory_order_relaxed))
            return;
    }
}

std::optional<std::string> ReadTrouble::description() const {
    const int error = m_error.load(std::memory_order_relaxed);
    return error == 0 ? std::nullopt
                      : std::optional<std::string>(std::generic_category().message(error));
}

} // namespace veridane
