#pragma once

#include "coordination/ScanCoordinator.h"
#include "coordination/VolumeQueries.h"
#include "platform/DrainedQueue.h"
#include "sample-items/SampleItems.h"
#include "support/VolumeBuilder.h"
#include "ui/QuietServices.h"

#include <cstddef>
#include <memory>

namespace veridane::benchmarks {

/// A window's coordinator after a scan that has found `count` items.
class BenchCoordinator {
public:
    explicit BenchCoordinator(std::size_t count)
        : m_coordinator({.mainQueue = m_queue,
                         .workspace = m_workspace,
                         .system = m_queries,
                         .scan = [count](const auto&, const auto&,
                                         const auto&) { return sample::sampleItems(count); },
                         .checkUpdate =
                             [](const auto&, const auto&) {
                             }},
                        std::make_unique<ScanCacheStore>(m_data.root()), m_data.root()) {
        m_coordinator.startScan();
        m_queue.drainUntil([this] { return !m_coordinator.isScanning().get(); });
    }

    [[nodiscard]] ScanCoordinator& coordinator() { return m_coordinator; }
    [[nodiscard]] Workspace& workspace() { return m_workspace; }
    /// A folder that goes with it.
    [[nodiscard]] test::VolumeBuilder& data() { return m_data; }

private:
    test::VolumeBuilder m_data;
    FileSystem m_files{m_data.root()};
    VolumeQueries m_queries{m_files};
    test::QuietWorkspace m_workspace;
    DrainedQueue m_queue;
    ScanCoordinator m_coordinator;
};

} // namespace veridane::benchmarks
