#pragma once

#include "platform/Path.h"

#include <string>

namespace veridane {

/// What other programs are asked to do for the user. Called on the main thread. Nobody waits for an
/// outcome: what cannot be opened opens nothing.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Opens an address in the program that is in charge of its scheme.
    virtual void openAddress(const std::string& address) = 0;

    /// Shows a file of the examined Mac in its folder.
    virtual void revealFile(const Path& path) = 0;

    /// Starts an application by its name, such as "Terminal".
    virtual void openApplication(const std::string& name) = 0;
};

} // namespace veridane
