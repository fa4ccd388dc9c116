#pragma once

#include "coordination/ItemLists.h"
#include "coordination/ScanCacheStore.h"
#include "coordination/StabilityLogger.h"
#include "coordination/SystemInfo.h"
#include "coordination/Workspace.h"
#include "model/NativeCounterparts.h"
#include "model/Recommendation.h"
#include "model/ScanProgress.h"
#include "platform/MainQueue.h"
#include "platform/Observed.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace veridane {

/// What the coordinator works with. All of it must outlive the coordinator; the queue must outlive
/// whatever calls back from `checkUpdate` as well.
struct CoordinatorServices {
    MainQueue& mainQueue;
    Workspace& workspace;
    const SystemQueries& system;

    /// The scan engine. Called on a thread of its own; ends early once a stop is requested. May
    /// call `onProgress` on any thread until it returns.
    std::function<std::vector<ScanItem>(const ScanOptions& options,
                                        const std::function<void(const ScanProgress&)>& onProgress,
                                        const std::stop_token& stop)>
        scan;

    /// Starts the check of one object and returns at once. The result may come on any thread,
    /// within the call or much later, or never.
    std::function<void(const ScanItem& item, std::function<void(UpdateCheckResult)> onResult)>
        checkUpdate;

    std::function<Date()> clock = now;
};

/// The one owner of everything that a window shows about a scan: the items, the running scan, the
/// filters and the selection. Lives on the main thread, with all its observers; what is computed
/// elsewhere comes back through the main queue. It can be destroyed at any moment, only not by one
/// of its observers: a running scan is stopped and waited for, saves and log lines under way are
/// finished, and update checks that end later are dropped.
class ScanCoordinator {
public:
    /// Restores the kept scan, if there is a usable one. The log goes to `logDirectory`, or nowhere
    /// without one.
    ScanCoordinator(CoordinatorServices services, std::unique_ptr<ScanCacheStore> cacheStore,
                    std::optional<std::string> logDirectory);
    ~ScanCoordinator();
    ScanCoordinator(const ScanCoordinator&) = delete;
    ScanCoordinator& operator=(const ScanCoordinator&) = delete;

    /// The last scan's result, in the engine's order.
    [[nodiscard]] const Observed<std::vector<ScanItem>>& items() const { return m_items; }
    [[nodiscard]] const Observed<bool>& isScanning() const { return m_isScanning; }
    /// Present only while scanning.
    [[nodiscard]] const Observed<std::optional<ScanProgress>>& progress() const {
        return m_progress;
    }
    /// Whether a result has been shown in this run. Never goes back to false.
    [[nodiscard]] const Observed<bool>& hasScannedOnce() const { return m_hasScannedOnce; }
    /// When the shown result was taken.
    [[nodiscard]] const Observed<std::optional<Date>>& lastScanDate() const {
        return m_lastScanDate;
    }
    [[nodiscard]] const SystemInfo& systemInfo() const { return m_systemInfo; }
    /// As it was at the start, or at the end of the last scan.
    [[nodiscard]] const Observed<bool>& hasFullDiskAccess() const { return m_hasFullDiskAccess; }
    [[nodiscard]] const Observed<StatusFilter>& statusFilter() const { return m_statusFilter; }
    [[nodiscard]] const Observed<std::optional<ItemKind>>& kindFilter() const {
        return m_kindFilter;
    }
    [[nodiscard]] const Observed<std::optional<std::string>>& vendorFilter() const {
        return m_vendorFilter;
    }
    [[nodiscard]] const Observed<std::string>& searchText() const { return m_searchText; }
    /// The identifier of the selected item.
    [[nodiscard]] const Observed<std::optional<Uuid>>& selection() const { return m_selection; }
    /// What the next scan covers.
    [[nodiscard]] const Observed<ScanOptions>& options() const { return m_options; }
    /// The running scan; requesting a stop cancels it.
    [[nodiscard]] const Observed<std::optional<std::stop_source>>& scanTask() const {
        return m_scanTask;
    }
    [[nodiscard]] const Observed<NativeCounterparts>& nativeCounterpartKeys() const {
        return m_nativeCounterpartKeys;
    }

    /// A filter that hides the selected item clears the selection; a vendor that the new filters
    /// leave nothing of is cleared as well, and any vendor without a kind.
    void setStatusFilter(StatusFilter filter);
    void setKindFilter(std::optional<ItemKind> kind);
    void setVendorFilter(std::optional<std::string> vendor);
    void setSearchText(std::string text);
    void setSelection(std::optional<Uuid> id);

    /// What the table shows, in its order. Valid until the next write of `items`.
    [[nodiscard]] ItemReferences filteredItems() const;
    /// The selected item, if the filters show it.
    [[nodiscard]] std::optional<ScanItem> selectedItem() const;
    /// What passes the status filter alone, in the order of `items`; valid as long.
    [[nodiscard]] ItemReferences statusFilteredItems() const;
    [[nodiscard]] std::vector<ItemKind> availableKinds() const;
    /// Empty without a kind filter.
    [[nodiscard]] std::vector<std::string> availableVendors() const;
    /// The same with the number that `count` gives for each, at the price of one of them.
    [[nodiscard]] std::vector<VendorCount> availableVendorCounts() const;
    /// These three count all items, whatever the filters say.
    [[nodiscard]] std::size_t count(StatusFilter filter) const;
    [[nodiscard]] std::size_t count(Urgency urgency) const;
    [[nodiscard]] std::size_t attentionCount() const;
    /// These two obey the status filter; the vendors' count is that of the kind filter's kind, and
    /// 0 without one.
    [[nodiscard]] std::size_t count(ItemKind kind) const;
    [[nodiscard]] std::size_t count(std::string_view vendor) const;

    [[nodiscard]] bool matchesStatusFilter(const ScanItem& item, StatusFilter filter) const;
    /// Whether a native twin of an Intel object is installed.
    [[nodiscard]] bool hasNativeCounterpart(const ScanItem& item) const;
    [[nodiscard]] Recommendation recommendation(const ScanItem& item) const;

    /// Starts a scan with `options`; nothing while one is running.
    void startScan();

    /// Looks for a newer version of one object; its `updateResult` tells how that goes. Nothing for
    /// an unknown identifier, and a result for an object that a new scan has replaced is dropped.
    void checkUpdate(Uuid id);
    /// The same for every object that comes from the store or names a feed, all at once.
    void checkAllUpdates();

    /// The JSON report of all items; nothing if it cannot be made.
    [[nodiscard]] std::optional<std::string> exportJSON() const;

    /// Writes a line with the present state to the log. Costs no access to a file.
    void logEvent(std::string_view name);

    /// For tests that drive the window: shows two made-up applications if the program's arguments
    /// ask for it, and runs through the filters if they ask for that as well.
    void applyUITestSeed(std::span<const std::string> launchArguments);

    void openFullDiskAccessSettings();
    void searchNativeVersionOnline(const ScanItem& item);
    void searchInAppStore(const ScanItem& item);

private:
    struct ScanResult;
    class WeakReference;

    void restoreFromCache();
    void finishScan(ScanResult& result);
    void writeItems(std::vector<ScanItem> items);
    /// Whether there is such an item.
    bool writeUpdateResult(Uuid id, const UpdateCheckResult& result);
    template <typename T>
    void writeFilter(Observed<T>& field, T value);
    void clearUnavailableVendor();
    void sanitizeSelection();
    [[nodiscard]] const ItemLists& lists() const;
    [[nodiscard]] ItemFilters filters() const;
    [[nodiscard]] const ItemReferences& shownItems() const;

    CoordinatorServices m_services;
    Observed<std::vector<ScanItem>> m_items;
    Observed<bool> m_isScanning;
    Observed<std::optional<ScanProgress>> m_progress;
    Observed<bool> m_hasScannedOnce;
    Observed<std::optional<Date>> m_lastScanDate;
    SystemInfo m_systemInfo;
    Observed<bool> m_hasFullDiskAccess;
    Observed<StatusFilter> m_statusFilter;
    Observed<std::optional<ItemKind>> m_kindFilter;
    Observed<std::optional<std::string>> m_vendorFilter;
    Observed<std::string> m_searchText;
    Observed<std::optional<Uuid>> m_selection;
    Observed<ScanOptions> m_options;
    Observed<std::optional<std::stop_source>> m_scanTask;
    std::unique_ptr<ScanCacheStore> m_cacheStore;
    StabilityLogger m_logger;
    Observed<NativeCounterparts> m_nativeCounterpartKeys;

    // Worked out on demand, and forgotten on every write that they depend on.
    mutable std::optional<ItemLists> m_lists;
    mutable std::optional<ItemReferences> m_shownItems;

    std::shared_ptr<ScanCoordinator*> m_self; // tasks that come too late find it gone
    std::jthread m_scanThread;                // last: it is joined while all the rest is there
};

} // namespace veridane
