#include "platform/DirectoryListing.h"

#include "platform/Descriptor.h"
#include "platform/FileStatus.h"
#include "platform/SystemCalls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace veridane {

std::optional<DirectoryListing::Entry> DirectoryListing::next() {
    while (const RawEntry* entry = nextRaw()) {
        // The dot entries begin like every hidden one.
        if (entry->d_name[0] != '.')
            return Entry{entry->d_name, typeOf(*entry)};
    }
    return std::nullopt;
}

#ifdef __linux__
const DirectoryListing::RawEntry* DirectoryListing::nextRaw() {
    if (m_at == m_end) {
        const auto got = uninterrupted(
            [this] { return ::getdents64(m_folder, m_buffer.data(), m_buffer.size()); });
        if (got <= 0) {
            m_failure = got < 0 ? errno : 0;
            return nullptr;
        }
        m_at = 0;
        m_end = static_cast<std::size_t>(got);
    }
    const auto* entry = reinterpret_cast<const RawEntry*>(&m_buffer[m_at]);
    m_at += entry->d_reclen;
    return entry;
}
#else
const DirectoryListing::RawEntry* DirectoryListing::nextRaw() {
    if (!m_stream) {
        Descriptor copy(::fcntl(m_folder, F_DUPFD_CLOEXEC, 0));
        m_stream.reset(::fdopendir(copy.get()));
        if (!m_stream) {
            m_failure = errno;
            return nullptr;
        }
        static_cast<void>(copy.release()); // the stream closes it
    }
    errno = 0;
    const RawEntry* entry = ::readdir(m_stream.get());
    m_failure = entry ? 0 : errno;
    return entry;
}
#endif

EntryType DirectoryListing::typeOf(const RawEntry& entry) const {
    switch (entry.d_type) {
    case DT_REG:
        return EntryType::regularFile;
    case DT_DIR:
        return EntryType::directory;
    case DT_LNK:
        return EntryType::symbolicLink;
    case DT_UNKNOWN: {
        // Some file systems (FUSE drivers, old exFAT) do not say it in the listing.
        const auto status = FileStatus::of(m_folder, entry.d_name);
        return status ? status->type() : EntryType::other;
    }
    default:
        return EntryType::other;
    }
}

} // namespace veridane
