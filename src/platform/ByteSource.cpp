#include "platform/ByteSource.h"

#include <algorithm>
#include <cstddef>

namespace veridane {

std::optional<ByteSource> ByteSource::slice(std::uint64_t offset, std::uint64_t size) const {
    if (offset > m_size || size > m_size - offset)
        return std::nullopt;
    ByteSource part = *this;
    part.m_size = size;
    if (m_file == nullptr)
        part.m_bytes = *m_bytes.slice(offset, size);
    else
        part.m_start += offset;
    return part;
}

std::optional<ByteView> ByteSource::read(std::uint64_t offset, std::uint64_t size,
                                         std::vector<std::uint8_t>& storage) const {
    if (m_file == nullptr)
        return m_bytes.slice(offset, size);
    if (offset > m_size || size > m_size - offset)
        return std::nullopt;
    storage.resize(static_cast<std::size_t>(size));
    const ByteView bytes = m_file->read(m_start + offset, storage);
    return bytes.size() == size ? std::optional(bytes) : std::nullopt;
}

ByteView ByteSource::readStart(std::uint64_t limit, std::vector<std::uint8_t>& storage) const {
    return read(0, std::min(m_size, limit), storage).value_or(ByteView());
}

} // namespace veridane
