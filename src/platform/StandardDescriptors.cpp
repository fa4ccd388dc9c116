#include "platform/StandardDescriptors.h"

#include "platform/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <vector>

namespace veridane {

void fillStandardDescriptors() {
    int descriptor = 0;
    do
        descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0)
        ::close(descriptor);
}

bool canOpenFiles(std::size_t count) {
    std::vector<Descriptor> opened;
    while (opened.size() < count) {
        opened.emplace_back(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
        if (!opened.back())
            return false;
    }
    return true;
}

} // namespace veridane
