#include "platform/Descriptor.h"

#include <unistd.h>

namespace veridane {

void Descriptor::close() {
    // The result is of no use: whatever it is, the descriptor is gone.
    if (m_value >= 0)
        ::close(std::exchange(m_value, -1));
}

} // namespace veridane
