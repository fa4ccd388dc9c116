#include "coordination/CoordinatorFixture.h"
#include "model/JsonForms.h"

namespace veridane::test {
namespace {

using ScanLifecycle = CoordinatorTest;
using enum CompatibilityStatus;

TEST_F(ScanLifecycle, AFinishedScanIsShownLoggedAndThereAgainAtTheNextStart) {
    const std::string rest = " kindFilter=none statusFilter=all vendorFilter=none\n";
    const std::vector<ScanItem> found = {sampleItem("B", needsRosetta), sampleItem("A", native)};
    EXPECT_FALSE(coordinator->hasScannedOnce().get());
    engine = [&](const ScanOptions&, const auto& onProgress, const auto&) {
        onProgress({.phase = "half", .completed = 1, .total = 2});
        return found;
    };
    coordinator->startScan();
    coordinator->startScan();
    EXPECT_EQ(coordinator->progress().get(), (ScanProgress{.phase = "Starte Scan …"}));
    EXPECT_TRUE(coordinator->scanTask().get());
    Texts phases;
    const Subscription subscription = coordinator->progress().observe([&] {
        phases.push_back(coordinator->progress().get().value_or(ScanProgress{"none"}).phase);
    });
    volume.file("/Library/Application Support/com.apple.TCC/TCC.db", "");
    finishScan();
    EXPECT_EQ(phases, (Texts{"half", "none"}));
    EXPECT_EQ(coordinator->items().get(), found);
    EXPECT_TRUE(coordinator->hasFullDiskAccess().get()) << "granted since the start";
    EXPECT_FALSE(coordinator->scanTask().get());

    start();
    EXPECT_EQ(coordinator->items().get(), found);
    EXPECT_EQ(coordinator->lastScanDate().get(), date);
    EXPECT_TRUE(coordinator->hasScannedOnce().get());
    EXPECT_EQ(log(), "event=coordinator_init filtered=0 isScanning=false items=0" + rest +
                         "event=scan_start_requested filtered=0 isScanning=false items=0" + rest +
                         "event=scan_completed filtered=2 isScanning=false items=2" + rest +
                         "event=coordinator_init filtered=2 isScanning=false items=2" + rest);
}

TEST_F(ScanLifecycle, WhoeverIsToldFindsAllWrittenAndMayStartTheNextScan) {
    std::string told;
    const Subscription ofItems = coordinator->items().observe([&] {
        told += "items with " +
                std::to_string(coordinator->nativeCounterpartKeys().get().keys().size()) + "; ";
    });
    const Subscription ofKeys =
        coordinator->nativeCounterpartKeys().observe([&] { told += "keys; "; });
    const Subscription ofEnd = coordinator->isScanning().observe([&] {
        if (!coordinator->isScanning().get() && !coordinator->scanTask().get() &&
            coordinator->lastScanDate().get() == date) {
            date += std::chrono::hours(1);
            waitForStop();
            coordinator->startScan();
        }
    });
    engine = [](const auto&, const auto&, const auto&) {
        return std::vector{sampleItem("A", needsRosetta), sampleItem("A", native)};
    };
    coordinator->startScan();
    queue.drainUntil([&] { return !told.empty(); });
    EXPECT_EQ(told, "items with 1; keys; ");
    EXPECT_TRUE(coordinator->isScanning().get() && coordinator->progress().get());
    coordinator->scanTask().get()->request_stop();
    finishScan();
    const std::string lines = log();
    EXPECT_LT(lines.find("event=scan_completed filtered=2 isScanning=false"),
              lines.rfind("event=scan_start_requested"));
}

TEST_F(ScanLifecycle, ACancelledScanLeavesAllButTheSelectionAsItWas) {
    const ScanItem item = sampleItem("Kept", native);
    show({item});
    coordinator->setSelection(item.id);
    date += std::chrono::hours(1);
    waitForStop();
    coordinator->startScan();
    EXPECT_FALSE(coordinator->selection().get());
    EXPECT_EQ(shownNames(), Texts{"Kept"}) << "while the engine runs";
    coordinator->scanTask().get()->request_stop();
    finishScan();
    EXPECT_EQ(coordinator->items().get(), std::vector{item});
    EXPECT_EQ(coordinator->lastScanDate().get(), date - std::chrono::hours(1));
    EXPECT_FALSE(coordinator->progress().get());
    EXPECT_FALSE(coordinator->scanTask().get());
    EXPECT_NE(log().find("event=scan_cancelled filtered=1 isScanning=false"), std::string::npos);
}

TEST_F(ScanLifecycle, ACachedOptionReachesTheNextScanAndItsCache) {
    CachedScanSnapshot snapshot{.scannedAt = date, .options = {.includeSystemApps = true}};
    data.file("/scan-cache-v1.json", json::snapshotText(snapshot));
    start();
    EXPECT_TRUE(coordinator->hasScannedOnce().get()) << "an empty result is one";
    ScanOptions used;
    engine = [&](const ScanOptions& options, const auto&, const auto&) {
        used = options;
        return std::vector<ScanItem>();
    };
    coordinator->startScan();
    finishScan();
    EXPECT_EQ(used, snapshot.options);
    start();
    EXPECT_EQ(coordinator->options().get(), snapshot.options);
}

TEST_F(ScanLifecycle, ACoordinatorCanGoAtAnyMoment) {
    waitForStop();
    coordinator->startScan();
    coordinator.reset(); // in the middle of the scan
    EXPECT_EQ(queue.drain(), 1u) << "the engine's result comes too late";

    start();
    std::vector<ScanItem> items(200, sampleItem("App", needsRosetta));
    for (ScanItem& item : items) {
        item.id = Uuid::random();
        item.updateSource = UpdateSource::sparkle;
    }
    show(items);
    coordinator->checkAllUpdates();
    ASSERT_EQ(checks.size(), 200u);
    std::jthread network([&] {
        for (const OnResult& onResult : checks)
            onResult(UpdateCheckResult::noFeed());
    });
    queue.drainUntil(
        [&] { return coordinator->items().get()[9].updateResult == UpdateCheckResult::noFeed(); });
    coordinator->startScan(); // a save, log lines and update results are under way
    coordinator.reset();
    network.join();
    queue.drain();
    start();
    EXPECT_EQ(coordinator->items().get().size(), 200u) << "the save has been waited for";
}

TEST_F(ScanLifecycle, UpdateResultsReachTheItemsThatAreStillThere) {
    ScanItem store = sampleItem("Store", native), feed = sampleItem("Feed", needsRosetta);
    store.updateSource = UpdateSource::macAppStore;
    feed.updateSource = UpdateSource::sparkle;
    const ScanItem other = sampleItem("Other", native);
    show({store, other, feed});
    const auto resultOf = [&](std::size_t i) {
        return coordinator->items().get()[i].updateResult;
    };

    coordinator->checkUpdate(Uuid::random());
    EXPECT_TRUE(checks.empty());
    coordinator->checkAllUpdates();
    ASSERT_EQ(checks.size(), 2u);
    EXPECT_EQ(resultOf(0), UpdateCheckResult::checking());
    int told = 0;
    const Subscription subscription = coordinator->items().observe([&] { ++told; });
    EXPECT_EQ(resultOf(1), UpdateCheckResult::notChecked());
    coordinator->checkUpdate(store.id); // overlaps with the first
    EXPECT_EQ(told, 0) << "it is being checked already";
    checks[2](UpdateCheckResult::upToDate("2"));
    checks[0](UpdateCheckResult::updateAvailable("1"));
    queue.drain();
    EXPECT_EQ(resultOf(0), UpdateCheckResult::updateAvailable("1")) << "the last to finish stands";
    EXPECT_EQ(told, 2);

    ScanItem replaced = feed;
    replaced.id = Uuid::random();
    show({replaced});
    checks[1](UpdateCheckResult::upToDate("9"));
    queue.drain();
    EXPECT_EQ(coordinator->items().get(), std::vector{replaced});
}

TEST_F(ScanLifecycle, TheSeedIsShownOnlyIfItIsAskedFor) {
    coordinator->applyUITestSeed(Texts{"UITEST_AUTOMATE_PROGRAM_FILTER", "-UITEST_SEED_DATA"});
    EXPECT_FALSE(coordinator->hasScannedOnce().get());
    coordinator->applyUITestSeed(Texts{"UITEST_AUTOMATE_PROGRAM_FILTER", "UITEST_SEED_DATA"});
    EXPECT_EQ(shownNames(), (Texts{"Demo Intel App", "Demo Native App"}));
    EXPECT_EQ(coordinator->selectedItem(), coordinator->items().get()[0]);
    EXPECT_TRUE(coordinator->hasScannedOnce().get());
    EXPECT_EQ(coordinator->lastScanDate().get(), date);
    const std::string head = " filtered=2 isScanning=false items=2 kindFilter=",
                      tail = " statusFilter=all vendorFilter=none\n";
    const std::string lines = log();
    EXPECT_EQ(lines.substr(lines.find('\n') + 1),
              "event=ui_test_seed_loaded" + head + "none" + tail + "event=kind_filter_changed" +
                  head + "application" + tail + "event=status_filter_changed" + head +
                  "application" + tail + "event=kind_filter_changed" + head + "none" + tail +
                  "event=ui_test_program_filter_completed" + head + "none" + tail);
}

TEST_F(ScanLifecycle, ActionsOpenAddressesThatAreSafeToPassOn) {
    ScanItem item = sampleItem("Größe #1", needsRosetta);
    coordinator->searchNativeVersionOnline(item);
    item.vendor = "A&B";
    coordinator->searchNativeVersionOnline(item);
    coordinator->searchInAppStore(item);
    coordinator->openFullDiskAccessSettings();
    EXPECT_EQ(
        workspace.calls,
        (Texts{"https://duckduckgo.com/?q=Gr%C3%B6%C3%9Fe%20%231%20Apple%20Silicon%20macOS",
               "https://duckduckgo.com/?q=A&B%20Gr%C3%B6%C3%9Fe%20%231%20Apple%20Silicon%20macOS",
               "macappstore://apps.apple.com/search?term=Gr%C3%B6%C3%9Fe%20%231",
               "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"}));
}

} // namespace
} // namespace veridane::test
