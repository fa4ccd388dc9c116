#include "ui/SummaryHeaderView.h"
#include "ui/Tile.h"
#include "ui/WindowFixture.h"

#include <QLabel>
#include <QProgressBar>

namespace veridane::test {
namespace {

using namespace veridane::ui;

class SummaryHeaderTest : public WindowTest {
protected:
    void showItems(std::size_t needRosetta, std::size_t native) {
        std::vector items(needRosetta, sampleItem("Old", CompatibilityStatus::needsRosetta));
        items.resize(needRosetta + native, sampleItem("New", CompatibilityStatus::native));
        show(std::move(items));
        turn();
    }
    bool isShown(const char* name) { return find(*view, name).isVisibleTo(view.get()); }
    std::string text(const char* name) { return find<QLabel>(*view, name).text().toStdString(); }
    /// Titles and counts of the tiles, the active one in brackets.
    Texts tiles() {
        Texts texts;
        for (const Tile* tile : view->findChildren<Tile*>()) {
            const std::string shown =
                tile->text().toStdString() + " " + tile->accessibleDescription().toStdString();
            texts.push_back(tile->isChecked() ? "[" + shown + "]" : shown);
        }
        return texts;
    }

    std::unique_ptr<SummaryHeaderView> view =
        std::make_unique<SummaryHeaderView>(*coordinator, theme);
};

TEST_F(SummaryHeaderTest, TheStatementTellsWhetherAnythingNeedsRosetta) {
    for (const char* name : {"readyLabel", "readinessButton", "lastScanLabel"})
        EXPECT_FALSE(isShown(name)) << name;
    showItems(1, 1);
    EXPECT_TRUE(!isShown("readyLabel") && isShown("readinessButton"));
    EXPECT_EQ(find<QAbstractButton>(*view, "readinessButton").text(),
              QStringLiteral("1 Apps/Komponenten benötigen Rosetta 2."));
    // 09:30 in UTC, shown in the time zone that the suite runs in
    EXPECT_EQ(text("lastScanLabel"), "Zuletzt aktualisiert: 1. März 2027, 23:15");
    showItems(0, 2);
    EXPECT_TRUE(isShown("readyLabel") && !isShown("readinessButton"));
}

TEST_F(SummaryHeaderTest, TilesCountEverythingAndEachPressSetsItsFilterAndIsLogged) {
    showItems(2, 3);
    const Texts counts = {"Gesamt 5", "Benötigt Rosetta 2", "Teilweise betroffen 0",
                          "Intel-Reste 0", "Bereit 3"};
    const auto press = [&](const char* name) {
        find<QAbstractButton>(*view, name).click();
        turn();
        return tiles();
    };
    Texts active = counts;
    active[1] = "[" + active[1] + "]";
    EXPECT_EQ(press("breaksOnMacOS28Tile"), active);
    EXPECT_EQ(press("breaksOnMacOS28Tile"), active) << "a tile never clears its filter";
    EXPECT_EQ(press("readinessButton"), counts) << "no tile stands for that filter";
    EXPECT_EQ(coordinator->statusFilter().get(), StatusFilter::needsAttention);
    view.reset();
    EXPECT_EQ(occurrences(log(), "event=status_filter_changed"), 3);
}

TEST_F(SummaryHeaderTest, ARunningScanShowsItsProgressAndNothingElse) {
    const std::pair<ScanProgress, double> cases[] = {
        {{"0/0", 0, 0}, 0},
        {{"1/4", 1, 4}, 0.25},
        {{"9/4", 9, 4}, 1},
        {{"1099511627776/2199023255552", std::int64_t{1} << 40, std::int64_t{1} << 41}, 0.5},
    };
    auto next = std::begin(cases);
    engine = [&](const auto&, const auto& onProgress, const auto&) {
        for (const auto& shown : cases)
            onProgress(shown.first);
        return std::vector<ScanItem>();
    };
    coordinator->startScan();
    turn();
    EXPECT_EQ(text("progressPhaseLabel"), "Starte Scan …");
    // Look at each report as it is shown.
    const auto subscription = coordinator->progress().observe([&] {
        if (!coordinator->progress().get())
            return;
        turn();
        const auto& bar = find<QProgressBar>(*view, "scanProgressBar");
        EXPECT_TRUE(isShown("scanProgressBar") && !isShown("totalTile"));
        EXPECT_EQ(text("progressCountLabel"), next->first.phase);
        EXPECT_NEAR(static_cast<double>(bar.value()) / bar.maximum(), next->second, 1e-6);
        ++next;
    });
    finishScan();
    turn();
    EXPECT_EQ(next, std::end(cases));
    EXPECT_TRUE(!isShown("scanProgressBar") && isShown("totalTile"));
}

TEST_F(SummaryHeaderTest, ANarrowTileBreaksItsTitleAndGrows) {
    const Tile& tile = find<Tile>(*view, "partiallyAffectedTile");
    EXPECT_GT(tile.heightForWidth(90), tile.heightForWidth(200));
}

} // namespace
} // namespace veridane::test
