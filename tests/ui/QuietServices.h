#pragma once

#include "coordination/NetworkMonitor.h"
#include "coordination/Workspace.h"
#include "platform/HttpClient.h"
#include "ui/Relauncher.h"
#include "ui/SavePanel.h"

#include <functional>
#include <optional>
#include <string>

/// What stands in for the desktop and the network where neither matters.
namespace veridane::test {

class QuietWorkspace : public Workspace {
    void openAddress(const std::string&) override {}
    void revealFile(const Path&) override {}
    void openApplication(const std::string&) override {}
};

/// The user cancels.
class QuietSavePanel : public ui::SavePanel {
    std::optional<std::string> chooseFile(const std::string&) override { return std::nullopt; }
};

class QuietRelauncher : public ui::Relauncher {
    void relaunch() override {}
};

/// Nobody is there to answer.
class UnreachableNetwork : public HttpClient {
    void get(const HttpRequest&, BodyHandler, Completion onEnd) override {
        onEnd(TransportError{"unreachable", std::nullopt});
    }
};

/// The way to the network is always as it is said to be.
class SteadyPath : public PathWatcher {
public:
    explicit SteadyPath(PathStatus status) : m_status(status) {}

private:
    void start(std::function<void(PathStatus)> onPath) override { onPath(m_status); }
    void cancel() override {}

    PathStatus m_status;
};

} // namespace veridane::test
