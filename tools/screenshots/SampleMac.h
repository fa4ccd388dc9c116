#pragma once

#include "coordination/ScanCoordinator.h"
#include "platform/DrainedQueue.h"
#include "support/VolumeBuilder.h"
#include "ui/QuietServices.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace veridane::screenshots {

/// A coordinator over the sample's disk, on the day that the pictures show.
class SampleMac {
public:
    /// Whether there is access to the whole disk.
    explicit SampleMac(bool hasAccess);

    [[nodiscard]] ScanCoordinator& coordinator() { return m_coordinator; }
    [[nodiscard]] DrainedQueue& queue() { return m_queue; }
    [[nodiscard]] Workspace& workspace() { return m_workspace; }

    /// With one update check in each of its outcomes, in turn.
    void scan();
    /// A scan that has come some way and goes no further.
    void scanHalfway();
    /// From the next scan on, nothing is found that has to do with Rosetta.
    void keepOnlyReady() { m_keepsOnlyReady = true; }
    void selectFirst(Urgency urgency);

private:
    class Machine : public SystemQueries {
    public:
        explicit Machine(bool hasAccess) : m_hasAccess(hasAccess) {}

        std::optional<std::int32_t> arm64Capability() const override { return 1; }
        bool exists(const Path&) const override { return true; }
        bool isReadable(const Path&) const override { return m_hasAccess; }
        std::string osVersion() const override { return "Version 26.4 (Build 25E214)"; }

    private:
        bool m_hasAccess;
    };

    [[nodiscard]] CoordinatorServices services();
    [[nodiscard]] std::vector<ScanItem>
    run(const ScanOptions& options, const std::function<void(const ScanProgress&)>& onProgress,
        const std::stop_token& stop) const;

    test::VolumeBuilder m_volume;
    FileSystem m_files = m_volume.files();
    Machine m_machine;
    test::QuietWorkspace m_workspace;
    DrainedQueue m_queue;
    bool m_isHeld = false;
    bool m_keepsOnlyReady = false;
    std::size_t m_checks = 0;
    ScanCoordinator m_coordinator;
};

} // namespace veridane::screenshots
