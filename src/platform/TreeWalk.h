#pragma once

#include "platform/Descriptor.h"
#include "platform/HeadReader.h"
#include "platform/QuietOpener.h"
#include "platform/WalkVisitor.h"

#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace veridane {

/// One walk over everything below a folder. The way down is a list and no recursion, and only its
/// last few folders are open, so that neither stack nor descriptors bound the depth. The entries of
/// all folders on the way stand in one list, their names in one buffer: a string for each entry
/// would cost more than reading the files.
class TreeWalk {
public:
    TreeWalk(const QuietOpener& opener, WalkVisitor& visitor, const std::stop_token& stop);
    TreeWalk(const TreeWalk&) = delete;
    TreeWalk& operator=(const TreeWalk&) = delete;

    void run(Descriptor root);

private:
    struct Entry {
        std::size_t nameStart;
        std::int64_t size;
        std::uint16_t nameLength;
        EntryType type;
        std::uint8_t tag;
    };

    struct Folder {
        Descriptor descriptor; // closed while the walk is far below
        FileIdentity identity; // known once it has been closed
        std::size_t firstEntry;
        std::size_t nextEntry;
        std::size_t endEntry;
        std::size_t firstName;
        std::size_t pathLength; // of the folder itself in m_path
    };

    void enter(Descriptor folder);
    void leave();
    void visitNext();
    void descend(const Entry& entry);
    void measure(const Folder& folder);
    void closeFarAncestors(std::size_t keptOpen);
    [[nodiscard]] bool reopenParent(int child, Folder& parent) const;
    [[nodiscard]] std::string_view nameOf(const Entry& entry) const {
        return std::string_view(m_names).substr(entry.nameStart, entry.nameLength);
    }

    const QuietOpener& m_opener;
    WalkVisitor& m_visitor;
    const std::stop_token& m_stop;
    HeadReader m_heads;
    std::vector<Folder> m_folders; // the way down
    std::vector<Entry> m_entries;
    std::string m_names;         // each with a NUL behind it
    std::string m_path;          // of the current entry, relative to the root
    std::size_t m_firstOpen = 0; // folders before this one on the way are closed
};

} // namespace veridane
