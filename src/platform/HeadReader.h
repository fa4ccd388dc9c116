#pragma once

#include "platform/OpenFile.h"
#include "platform/QuietOpener.h"
#include "platform/WalkVisitor.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace veridane {

/// Opens the files of one folder after the other, and has the visitor classify them by their first
/// bytes. What a cold disk would have to fetch is asked for ahead and read at the end of the
/// folder, while the disk is at it.
class HeadReader {
public:
    /// `freeDescriptors` is called when the process has none left, to close what can be opened
    /// again.
    HeadReader(const QuietOpener& opener, WalkVisitor& visitor,
               std::function<void()> freeDescriptors);

    /// Where the answer about one file goes; must stay valid until `leaveFolder`.
    struct Answer {
        EntryType& type;
        std::int64_t& size;
        std::uint8_t& tag;
    };

    void enterFolder(int folder) { m_folder = folder; }
    void read(const char* name, Answer answer);
    void leaveFolder() { readWaiting(); }

private:
    using Head = std::array<std::uint8_t, WalkVisitor::headSize>;

    struct Waiting {
        OpenFile file;
        std::uint8_t* tag;
    };

    [[nodiscard]] Descriptor open(const char* name);
    [[nodiscard]] bool isWaitingForDisk(const OpenFile& file, int descriptor, Head& head,
                                        ByteView& first);
    void readWaiting();

    const QuietOpener& m_opener;
    WalkVisitor& m_visitor;
    std::function<void()> m_freeDescriptors;
    int m_folder = -1;
    bool m_canAskWithoutWaiting = true;
    std::vector<Waiting> m_waiting;
};

} // namespace veridane
