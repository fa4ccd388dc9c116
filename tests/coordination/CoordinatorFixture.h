#pragma once

#include "coordination/NetworkMonitor.h"
#include "coordination/ScanCoordinator.h"
#include "coordination/VolumeQueries.h"
#include "platform/DrainedQueue.h"
#include "support/ItemSamples.h"
#include "support/VolumeTest.h"

#include <functional>
#include <latch>
#include <memory>

namespace veridane::test {

class RecordingWorkspace : public Workspace {
public:
    void openAddress(const std::string& address) override { calls.push_back(address); }
    void revealFile(const Path& path) override { calls.push_back("reveal " + path.text()); }
    void openApplication(const std::string& name) override { calls.push_back("start " + name); }

    Texts calls;
};

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

/// A coordinator whose engine, clock, main queue and network are the test's.
class CoordinatorTest : public VolumeTest {
protected:
    using OnResult = std::function<void(UpdateCheckResult)>;

    CoordinatorTest() { start(); }

    /// A new run of the program over the same data.
    void start() {
        coordinator.reset();
        coordinator = std::make_unique<ScanCoordinator>(
            CoordinatorServices{
                .mainQueue = queue,
                .workspace = workspace,
                .system = queries,
                .scan = [this](const auto& options, const auto& onProgress,
                               const auto& stop) { return engine(options, onProgress, stop); },
                .checkUpdate = [this](const ScanItem&,
                                      OnResult onResult) { checks.push_back(std::move(onResult)); },
                .clock =
                    [this] {
                        return date;
                    }},
            std::make_unique<ScanCacheStore>(data.root()), data.root());
    }
    void finishScan() {
        queue.drainUntil([this] { return !coordinator->isScanning().get(); });
    }
    void show(std::vector<ScanItem> items) {
        engine = [items = std::move(items)](const auto&, const auto&, const auto&) {
            return items;
        };
        coordinator->startScan();
        finishScan();
    }
    /// An engine that gives nothing until it is stopped.
    void waitForStop() {
        engine = [](const auto&, const auto&, const std::stop_token& stop) {
            std::latch stopped(1);
            const std::stop_callback onStop(stop, [&] { stopped.count_down(); });
            stopped.wait();
            return std::vector<ScanItem>();
        };
    }
    /// The log so far without its times; ends the run.
    std::string log() {
        coordinator.reset();
        std::string text;
        std::istringstream lines(textOf(data.hostPath("/stability.log")));
        for (std::string line; std::getline(lines, line);)
            text += line.substr(line.find(' ', line.find("] event=") + 2) + 1) + "\n";
        return text;
    }
    Texts shownNames() const {
        Texts names;
        for (const ScanItem* item : coordinator->filteredItems())
            names.push_back(item->name);
        return names;
    }

    VolumeBuilder data; // any folder that goes with the test
    FileSystem files = volume.files();
    VolumeQueries queries{files};
    RecordingWorkspace workspace;
    DrainedQueue queue;
    Date date = *parseISO8601("2027-03-01T09:30:00Z");
    std::vector<OnResult> checks;
    decltype(CoordinatorServices::scan) engine = [](const auto&, const auto&, const auto&) {
        return std::vector<ScanItem>();
    };
    std::unique_ptr<ScanCoordinator> coordinator;
};

} // namespace veridane::test
