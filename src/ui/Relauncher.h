#pragma once

namespace veridane::ui {

/// Starts the program anew.
class Relauncher {
public:
    virtual ~Relauncher() = default;

    /// Starts a new instance with the arguments of this one, and then ends this one, also if the
    /// new one could not be started.
    virtual void relaunch() = 0;
};

} // namespace veridane::ui
