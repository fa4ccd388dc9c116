#pragma once

#include "platform/Descriptor.h"

#include <string>
#include <vector>

namespace veridane::test {

/// The terminal program itself, as a process of its own.
class Program {
public:
    /// Opens the file, so that whoever this process plays later may run it from wherever it lies.
    Program();

    struct Run {
        int status = -1;        // what it ended with; -1 for a signal
        long mostKilobytes = 0; // of memory, at the moment when it had the most
    };

    /// Runs it to its end with no more than 64 descriptors.
    [[nodiscard]] Run run(const std::vector<std::string>& arguments) const;

private:
    Descriptor m_file;
};

} // namespace veridane::test
