#include "SampleMac.h"

#include "platform/Language.h"
#include "sample/SampleVolume.h"
#include "scan/SystemScanner.h"

#include <latch>
#include <memory>

namespace veridane::screenshots {
namespace {

UpdateCheckResult outcome(std::size_t number) {
    switch (number % 5) {
    case 0:
        return UpdateCheckResult::updateAvailable("10.0.1");
    case 1:
        return UpdateCheckResult::upToDate("6.3.1");
    case 2:
        return UpdateCheckResult::checking();
    case 3:
        return UpdateCheckResult::failed("HTTP 404");
    default:
        return UpdateCheckResult::noFeed();
    }
}

bool isReady(const ScanItem& item) {
    return item.status == CompatibilityStatus::native && item.intelComponents.empty();
}

} // namespace

SampleMac::SampleMac(bool hasAccess)
    : m_machine(hasAccess),
      m_coordinator(services(), std::make_unique<ScanCacheStore>(std::nullopt), std::nullopt) {
    sample::writeSampleVolume(m_volume);
}

CoordinatorServices SampleMac::services() {
    return {
        .mainQueue = m_queue,
        .workspace = m_workspace,
        .system = m_machine,
        .scan = [this](const auto& options, const auto& onProgress,
                       const auto& stop) { return run(options, onProgress, stop); },
        .checkUpdate = [this](const ScanItem&, auto onResult) { onResult(outcome(m_checks++)); },
        .clock = [] { return *parseISO8601("2026-03-14T08:41:00Z"); },
    };
}

void SampleMac::scan() {
    m_coordinator.startScan();
    m_queue.drainUntil([this] { return !m_coordinator.isScanning().get(); });
    m_coordinator.checkAllUpdates();
    m_queue.drain();
}

void SampleMac::scanHalfway() {
    m_isHeld = true;
    m_coordinator.startScan();
    m_queue.drainUntil([this] {
        const auto& progress = m_coordinator.progress().get();
        return progress && progress->total > 0;
    });
}

void SampleMac::selectFirst(Urgency urgency) {
    for (const ScanItem* item : m_coordinator.filteredItems()) {
        if (m_coordinator.recommendation(*item).urgency == urgency)
            return m_coordinator.setSelection(item->id);
    }
}

std::vector<ScanItem> SampleMac::run(const ScanOptions& options,
                                     const std::function<void(const ScanProgress&)>& onProgress,
                                     const std::stop_token& stop) const {
    if (m_isHeld) {
        onProgress({.phase = localized("Analysiere Programme …"), .completed = 185, .total = 412});
        std::latch stopped(1);
        const std::stop_callback onStop(stop, [&] { stopped.count_down(); });
        stopped.wait();
        return {};
    }
    auto items =
        SystemScanner::scan(m_files, SearchLocations(SearchLocations::homesOnVolume(m_files)),
                            options, onProgress, stop);
    if (m_keepsOnlyReady)
        std::erase_if(items, [](const ScanItem& item) { return !isReady(item); });
    return items;
}

} // namespace veridane::screenshots
