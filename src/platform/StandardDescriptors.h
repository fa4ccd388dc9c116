#pragma once

#include <cstddef>

namespace veridane {

/// Opens those of standard input, output and error that are closed, for reading and without
/// content. Else the first files that the process opens take their place, and what is printed ends
/// up in them; this way printing fails and can be told. To be called first.
void fillStandardDescriptors();

/// Whether the process can open that many files more at the same time. Who goes on without finds
/// folders empty, and libraries that end the process.
[[nodiscard]] bool canOpenFiles(std::size_t count);

} // namespace veridane
