#include "platform/DirectoryListing.h"

#include "platform/FileStatus.h"

namespace veridane {
namespace {

EntryType typeOf(int folder, const dirent& entry) {
    switch (entry.d_type) {
    case DT_REG:
        return EntryType::regularFile;
    case DT_DIR:
        return EntryType::directory;
    case DT_LNK:
        return EntryType::symbolicLink;
    case DT_UNKNOWN: {
        // Some file systems (FUSE drivers, old exFAT) do not say it in the listing.
        const auto status = FileStatus::of(folder, entry.d_name);
        return status ? status->type() : EntryType::other;
    }
    default:
        return EntryType::other;
    }
}

} // namespace

DirectoryListing::DirectoryListing(Descriptor folder) {
    if (!folder)
        return;
    m_stream.reset(::fdopendir(folder.get()));
    if (m_stream)
        static_cast<void>(folder.release()); // the stream closes it
}

std::optional<DirectoryListing::Entry> DirectoryListing::next() {
    while (const dirent* entry = ::readdir(m_stream.get())) {
        // The dot entries begin like every hidden one.
        if (entry->d_name[0] != '.')
            return Entry{entry->d_name, typeOf(descriptor(), *entry)};
    }
    return std::nullopt;
}

} // namespace veridane
