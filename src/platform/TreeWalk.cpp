#include "platform/TreeWalk.h"

#include "platform/DirectoryListing.h"
#include "platform/FileStatus.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>

namespace veridane {
namespace {

// Real bundles are some twenty folders deep. Each open one holds a descriptor.
constexpr std::size_t maxOpenFolders = 24;

// Deeper than any path that the system itself could name; only there so that there is an end.
constexpr std::size_t maxLevels = 100'000;

} // namespace

TreeWalk::TreeWalk(const QuietOpener& opener, WalkVisitor& visitor, const std::stop_token& stop)
    : m_opener(opener), m_visitor(visitor), m_stop(stop),
      m_heads(opener, visitor, [this] { closeFarAncestors(0); }) {}

void TreeWalk::run(Descriptor root) {
    enter(std::move(root));
    while (!m_folders.empty() && !m_stop.stop_requested()) {
        if (m_folders.back().nextEntry < m_folders.back().endEntry)
            visitNext();
        else
            leave();
    }
}

void TreeWalk::enter(Descriptor descriptor) {
    if (!descriptor) {
        m_opener.trouble()->note(errno);
        return;
    }
    DirectoryListing listing(descriptor.get());
    Folder folder{.descriptor = std::move(descriptor),
                  .identity = {},
                  .firstEntry = m_entries.size(),
                  .nextEntry = m_entries.size(),
                  .endEntry = m_entries.size(),
                  .firstName = m_names.size(),
                  .pathLength = m_path.size()};
    while (const auto entry = listing.next()) {
        m_entries.push_back(
            {m_names.size(), 0, static_cast<std::uint16_t>(entry->name.size()), entry->type, 0});
        m_names.append(entry->name.data(), entry->name.size() + 1);
    }
    m_opener.trouble()->note(listing.failure());
    folder.endEntry = m_entries.size();
    std::ranges::sort(m_entries.begin() + static_cast<std::ptrdiff_t>(folder.firstEntry),
                      m_entries.end(), {}, [this](const Entry& entry) { return nameOf(entry); });
    measure(folder);
    m_folders.push_back(std::move(folder));
}

void TreeWalk::measure(const Folder& folder) {
    if (m_visitor.detail(0) == WalkDetail::names)
        return;
    const int descriptor = folder.descriptor.get();
    std::size_t tagged = 0;
    m_heads.enterFolder(descriptor);
    for (std::size_t i = folder.firstEntry; i < folder.endEntry && !m_stop.stop_requested(); ++i) {
        Entry& entry = m_entries[i];
        if (entry.type != EntryType::regularFile)
            continue;
        const char* name = &m_names[entry.nameStart];
        if (m_visitor.detail(tagged) == WalkDetail::classifying)
            m_heads.read(name, {entry.type, entry.size, entry.tag});
        else if (const auto status = FileStatus::of(descriptor, name))
            entry.size = status->size();
        if (entry.tag != 0)
            ++tagged;
    }
    m_heads.leaveFolder();
}

void TreeWalk::visitNext() {
    Folder& folder = m_folders.back();
    const Entry entry = m_entries[folder.nextEntry++];
    m_path.resize(folder.pathLength);
    if (!m_path.empty())
        m_path += '/';
    m_path += nameOf(entry);
    const auto next = m_visitor.visit({.name = nameOf(entry),
                                       .relativePath = m_path,
                                       .type = entry.type,
                                       .level = static_cast<int>(m_folders.size()),
                                       .size = entry.size,
                                       .tag = entry.tag});
    if (entry.type == EntryType::directory && next == WalkVisitor::Next::descend)
        descend(entry);
}

void TreeWalk::descend(const Entry& entry) {
    if (m_folders.size() >= maxLevels)
        return;
    closeFarAncestors(maxOpenFolders);
    const int parent = m_folders.back().descriptor.get();
    const char* name = &m_names[entry.nameStart];
    Descriptor child = m_opener.folder(parent, name);
    if (!child && isOutOfDescriptors(errno)) {
        closeFarAncestors(1);
        child = m_opener.folder(parent, name);
    }
    enter(std::move(child));
}

void TreeWalk::closeFarAncestors(std::size_t keptOpen) {
    while (m_folders.size() - m_firstOpen > keptOpen) {
        Folder& folder = m_folders[m_firstOpen++];
        if (const auto status = FileStatus::of(folder.descriptor.get()))
            folder.identity = status->identity();
        folder.descriptor.close();
    }
}

void TreeWalk::leave() {
    const Folder child = std::move(m_folders.back());
    m_folders.pop_back();
    m_entries.resize(child.firstEntry);
    m_names.resize(child.firstName);
    if (m_folders.empty() || m_firstOpen < m_folders.size())
        return;
    if (reopenParent(child.descriptor.get(), m_folders.back()))
        m_firstOpen = m_folders.size() - 1;
    else
        m_folders.clear(); // somebody moved the tree under us: there is no way back up
}

bool TreeWalk::reopenParent(int child, Folder& parent) const {
    Descriptor descriptor = m_opener.folder(child, "..");
    const auto status = FileStatus::of(descriptor.get());
    if (!status || status->identity() != parent.identity)
        return false;
    parent.descriptor = std::move(descriptor);
    return true;
}

} // namespace veridane
