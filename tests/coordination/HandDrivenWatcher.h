#pragma once

#include "coordination/NetworkMonitor.h"

#include <functional>
#include <string>
#include <utility>

namespace veridane::test {

/// A network that the test turns on and off.
struct HandDrivenWatcher : PathWatcher {
    explicit HandDrivenWatcher(std::string& recorded) : calls(recorded) {}
    void start(std::function<void(PathStatus)> handler) override {
        calls += "start ";
        onPath = std::move(handler);
    }
    void cancel() override { calls += "cancel "; }

    std::string& calls;
    std::function<void(PathStatus)> onPath;
};

} // namespace veridane::test
