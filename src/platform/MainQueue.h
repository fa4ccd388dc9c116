#pragma once

#include <functional>

namespace veridane {

/// The way back to the main thread: what is posted runs there, one task after the other, in the
/// order of posting. In a window this is its event loop.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    /// Returns at once; never runs the task itself. Safe on any thread.
    virtual void post(std::function<void()> task) = 0;
};

} // namespace veridane
