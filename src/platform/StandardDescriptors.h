#pragma once

namespace veridane {

/// Opens those of standard input, output and error that are closed, for reading and without
/// content. Else the first files that the process opens take their place, and what is printed ends
/// up in them; this way printing fails and can be told. To be called first.
void fillStandardDescriptors();

} // namespace veridane
