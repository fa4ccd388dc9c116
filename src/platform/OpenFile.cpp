#include "platform/OpenFile.h"

#include <unistd.h>

#include <cerrno>
#include <limits>

namespace veridane {

ByteView OpenFile::read(std::uint64_t offset, std::span<std::uint8_t> buffer) const {
    constexpr auto lastOffset = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
    if (offset > lastOffset || buffer.size() > lastOffset - offset)
        return {};
    std::size_t filled = 0;
    while (filled < buffer.size()) {
        const auto got = ::pread(m_descriptor.get(), buffer.data() + filled, buffer.size() - filled,
                                 static_cast<off_t>(offset + filled));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            m_trouble->note(errno);
            return {};
        }
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    return ByteView(buffer.first(filled));
}

std::optional<std::vector<std::uint8_t>> OpenFile::readExactly(std::uint64_t offset,
                                                               std::size_t size) const {
    // The size at opening bounds what is allocated; the file is asked again by the read itself.
    if (offset > m_size || size > m_size - offset)
        return std::nullopt;
    std::vector<std::uint8_t> bytes(size);
    if (read(offset, bytes).size() != size)
        return std::nullopt;
    return bytes;
}

} // namespace veridane
