#pragma once

#include "support/Bytes.h"

#include <string>
#include <vector>

/// Files whose every byte is meant: what a stranger would write to harm a reader, and no accident
/// leaves behind.
namespace veridane::test {

struct HostileFile {
    std::string name; // says what it is
    Bytes content;
};

/// Property lists that nest, unfold, repeat or turn in circles. None of them is a list that should
/// be believed, but all begin like one.
[[nodiscard]] std::vector<HostileFile> hostileLists();

/// Good lists with names, identifiers and texts as nobody writes them.
[[nodiscard]] std::vector<HostileFile> oddLists();

/// Universal headers whose table names arm64 and x86_64 and whose slices are not where, or not as
/// large as, it says. For the scan, which reads no more than the table, they are native.
[[nodiscard]] std::vector<HostileFile> hostileHeaders();

} // namespace veridane::test
