#include "coordination/ScanCoordinator.h"

#include "coordination/DemoItems.h"
#include "coordination/ExternalAddresses.h"
#include "platform/Language.h"
#include "reports/ReportExporter.h"
#include "updates/UpdateChecker.h"

#include <algorithm>
#include <utility>

namespace veridane {

/// The way back from other threads to a coordinator that may be gone by then.
class ScanCoordinator::WeakReference {
public:
    explicit WeakReference(ScanCoordinator& coordinator)
        : m_queue(coordinator.m_services.mainQueue), m_coordinator(coordinator.m_self) {}

    /// Runs the task on the main thread, or not at all.
    void post(std::function<void(ScanCoordinator&)> task) const {
        m_queue.post([weak = m_coordinator, task = std::move(task)] {
            // Coordinators are destroyed on this very thread: what is here now stays for the task.
            if (const auto coordinator = weak.lock())
                task(**coordinator);
        });
    }

private:
    MainQueue& m_queue;
    std::weak_ptr<ScanCoordinator*> m_coordinator;
};

struct ScanCoordinator::ScanResult {
    ScanOptions options;
    std::vector<ScanItem> items;
    std::vector<ScanItem> itemsToKeep; // a copy, made where it keeps no window waiting
    bool wasCancelled = false;
};

ScanCoordinator::ScanCoordinator(CoordinatorServices services,
                                 std::unique_ptr<ScanCacheStore> cacheStore,
                                 std::optional<std::string> logDirectory)
    : m_services(std::move(services)), m_systemInfo(SystemInfo::current(m_services.system)),
      m_hasFullDiskAccess(probeFullDiskAccess(m_services.system)),
      m_cacheStore(std::move(cacheStore)), m_logger(std::move(logDirectory)),
      m_self(std::make_shared<ScanCoordinator*>(this)) {
    restoreFromCache();
    logEvent("coordinator_init");
}

ScanCoordinator::~ScanCoordinator() = default;

void ScanCoordinator::restoreFromCache() {
    auto snapshot = m_cacheStore->load();
    if (!snapshot)
        return;
    writeItems(std::move(snapshot->items));
    m_options.set(snapshot->options);
    m_hasScannedOnce.set(true);
    m_lastScanDate.set(snapshot->scannedAt);
    sanitizeSelection();
}

void ScanCoordinator::startScan() {
    if (m_isScanning.get())
        return;
    logEvent("scan_start_requested");
    m_isScanning.set(true);
    m_progress.set(ScanProgress{.phase = localized("Starte Scan …")});
    m_selection.set(std::nullopt);

    m_scanThread = std::jthread([scan = m_services.scan, options = m_options.get(),
                                 weak = WeakReference(*this)](const std::stop_token& stop) {
        const auto onProgress = [&weak](const ScanProgress& progress) {
            weak.post([progress](ScanCoordinator& self) { self.m_progress.set(progress); });
        };
        const auto result = std::make_shared<ScanResult>();
        result->options = options;
        result->items = scan(options, onProgress, stop);
        result->itemsToKeep = result->items;
        weak.post([result, stop](ScanCoordinator& self) {
            result->wasCancelled = stop.stop_requested();
            self.finishScan(*result);
        });
    });
    m_scanTask.set(m_scanThread.get_stop_source());
}

void ScanCoordinator::finishScan(ScanResult& result) {
    // All is written before anybody is told of the end: an observer may start the next scan.
    JointWrite end;
    if (result.wasCancelled) {
        end.set(m_isScanning, false);
        end.set(m_progress, std::nullopt);
        logEvent("scan_cancelled");
    } else {
        const Date date = m_services.clock();
        writeItems(std::move(result.items));
        end.set(m_isScanning, false);
        end.set(m_progress, std::nullopt);
        end.set(m_hasScannedOnce, true);
        end.set(m_lastScanDate, date);
        end.set(m_hasFullDiskAccess, probeFullDiskAccess(m_services.system));
        logEvent("scan_completed");
        m_cacheStore->save(std::move(result.itemsToKeep), result.options, date);
    }
    end.set(m_scanTask, std::nullopt);
    end.notify();
}

void ScanCoordinator::writeItems(std::vector<ScanItem> items) {
    NativeCounterparts counterparts(items);
    m_lists.reset(); // it refers to the old items
    m_shownItems.reset();
    JointWrite write;
    write.set(m_items, std::move(items));
    write.set(m_nativeCounterpartKeys, std::move(counterparts));
    write.notify();
    sanitizeSelection();
}

// Nothing that is derived from the items depends on this one field, so all of it stays.
bool ScanCoordinator::writeUpdateResult(Uuid id, const UpdateCheckResult& result) {
    const auto place = lists().indexOf(id);
    if (!place)
        return false;
    m_items.change([&](std::vector<ScanItem>& items) {
        UpdateCheckResult& written = items[*place].updateResult;
        return std::exchange(written, result) != result;
    });
    sanitizeSelection();
    return true;
}

void ScanCoordinator::checkUpdate(Uuid id) {
    if (!writeUpdateResult(id, UpdateCheckResult::checking()))
        return;
    const auto place = lists().indexOf(id);
    if (!place)
        return; // an observer has written other items
    m_services.checkUpdate(m_items.get()[*place],
                           [id, weak = WeakReference(*this)](UpdateCheckResult result) {
                               weak.post([id, result = std::move(result)](ScanCoordinator& self) {
                                   self.writeUpdateResult(id, result);
                               });
                           });
}

void ScanCoordinator::checkAllUpdates() {
    std::vector<Uuid> ids;
    for (const ScanItem& item : m_items.get()) {
        if (UpdateChecker::hasSource(item))
            ids.push_back(item.id);
    }
    for (const Uuid& id : ids)
        checkUpdate(id);
}

std::optional<std::string> ScanCoordinator::exportJSON() const {
    return ReportExporter::jsonReport(m_items.get());
}

void ScanCoordinator::logEvent(std::string_view name) {
    m_logger.log(
        std::string(name),
        {{"event", std::string(name)},
         {"filtered", std::to_string(shownItems().size())},
         {"isScanning", m_isScanning.get() ? "true" : "false"},
         {"items", std::to_string(m_items.get().size())},
         {"kindFilter", std::string(m_kindFilter.get() ? rawString(*m_kindFilter.get()) : "none")},
         {"statusFilter", std::string(rawString(m_statusFilter.get()))},
         {"vendorFilter", m_vendorFilter.get().value_or("none")}});
}

void ScanCoordinator::applyUITestSeed(std::span<const std::string> launchArguments) {
    const auto isAskedFor = [&](std::string_view flag) {
        return std::ranges::find(launchArguments, flag) != launchArguments.end();
    };
    if (!isAskedFor("UITEST_SEED_DATA"))
        return;
    const Date date = m_services.clock();
    writeItems(demoItems(date));
    m_hasScannedOnce.set(true);
    m_lastScanDate.set(date);
    logEvent("ui_test_seed_loaded");
    if (!isAskedFor("UITEST_AUTOMATE_PROGRAM_FILTER"))
        return;
    const std::vector<ScanItem>& items = m_items.get();
    setSelection(items.empty() ? std::nullopt : std::optional(items.front().id));
    setKindFilter(ItemKind::application);
    logEvent("kind_filter_changed");
    setStatusFilter(StatusFilter::all);
    logEvent("status_filter_changed");
    setKindFilter(std::nullopt);
    logEvent("kind_filter_changed");
    logEvent("ui_test_program_filter_completed");
}

void ScanCoordinator::openFullDiskAccessSettings() {
    m_services.workspace.openAddress(ExternalAddresses::fullDiskAccessSettings());
}

void ScanCoordinator::searchNativeVersionOnline(const ScanItem& item) {
    m_services.workspace.openAddress(ExternalAddresses::nativeVersionSearch(item));
}

void ScanCoordinator::searchInAppStore(const ScanItem& item) {
    m_services.workspace.openAddress(ExternalAddresses::appStoreSearch(item));
}

} // namespace veridane
