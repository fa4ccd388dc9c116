#include "platform/HeadReader.h"

#include "platform/FileStatus.h"

#include <fcntl.h>
#include <sys/uio.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <span>
#include <utility>

namespace veridane {
namespace {

// Each is an open descriptor; enough to keep a disk's queue full.
constexpr std::size_t maxWaiting = 64;

} // namespace

HeadReader::HeadReader(const QuietOpener& opener, WalkVisitor& visitor,
                       std::function<void()> freeDescriptors)
    : m_opener(opener), m_visitor(visitor), m_freeDescriptors(std::move(freeDescriptors)) {}

Descriptor HeadReader::open(const char* name) {
    Descriptor descriptor = m_opener.file(m_folder, name);
    if (!descriptor && isOutOfDescriptors(errno)) {
        // A file left out here would be a component that nobody is told of.
        readWaiting();
        m_freeDescriptors();
        descriptor = m_opener.file(m_folder, name);
    }
    if (!descriptor)
        m_opener.trouble()->note(errno);
    return descriptor;
}

void HeadReader::read(const char* name, Answer answer) {
    Descriptor descriptor = open(name);
    const auto status =
        descriptor ? FileStatus::of(descriptor.get()) : FileStatus::of(m_folder, name);
    if (!status)
        return;
    answer.type = status->type(); // it may have been replaced since the listing
    answer.size = status->size();
    if (!descriptor || answer.type != EntryType::regularFile || answer.size == 0)
        return;

    Head head;
    ByteView first;
    const int number = descriptor.get();
    OpenFile file(std::move(descriptor), static_cast<std::uint64_t>(status->size()),
                  status->identity(), m_opener.trouble());
    if (!isWaitingForDisk(file, number, head, first)) {
        answer.tag = m_visitor.classify(FileHead(file, first));
        return;
    }
    m_waiting.push_back({std::move(file), &answer.tag});
    if (m_waiting.size() >= maxWaiting)
        readWaiting();
}

bool HeadReader::isWaitingForDisk(const OpenFile& file, [[maybe_unused]] int descriptor, Head& head,
                                  ByteView& first) {
#ifdef RWF_NOWAIT
    if (m_canAskWithoutWaiting) {
        const iovec target{head.data(), head.size()};
        const auto got = ::preadv2(descriptor, &target, 1, 0, RWF_NOWAIT);
        const auto whole = std::min<std::uint64_t>(head.size(), file.size());
        if (got >= 0 && static_cast<std::uint64_t>(got) >= whole) {
            first = ByteView(std::span(head).first(static_cast<std::size_t>(got)));
            return false;
        }
        if (got < 0 && errno == EAGAIN) {
            ::posix_fadvise(descriptor, 0, static_cast<off_t>(head.size()), POSIX_FADV_WILLNEED);
            return true;
        }
        if (got < 0 && (errno == EOPNOTSUPP || errno == ENOSYS || errno == EINVAL))
            m_canAskWithoutWaiting = false; // not on this file system, or not on this kernel
    }
#endif
    first = file.read(0, head);
    return false;
}

void HeadReader::readWaiting() {
    for (const Waiting& waiting : m_waiting) {
        Head head;
        const ByteView first = waiting.file.read(0, head);
        *waiting.tag = m_visitor.classify(FileHead(waiting.file, first));
    }
    m_waiting.clear();
}

} // namespace veridane
