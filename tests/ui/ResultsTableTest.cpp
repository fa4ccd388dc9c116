#include "ui/ResultsTable.h"

#include "ui/ResultsFixture.h"
#include "ui/ResultsTableView.h"
#include "ui/Text.h"

#include <QAbstractEventDispatcher>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace veridane::ui {
namespace {

TEST(ResultsColumns, ShareTheWidthByTheirNeedAndKeepWhatIsDragged) {
    using Widths = PerColumn<int>;
    const std::tuple<int, ResultsColumns::Dragged, Widths> cases[] = {
        {0, {}, {180, 230, 120, 100, 80, 120}},
        {830, {}, {180, 230, 120, 100, 80, 120}},
        {832, {}, {180, 231, 120, 100, 80, 121}},
        {950, {}, {210, 260, 135, 125, 80, 140}},
        {1070, {}, {240, 290, 150, 150, 80, 160}},
        {1170, {}, {280, 350, 150, 150, 80, 160}},
        {830, {{300}}, {300, 230, 120, 100, 80, 120}},
        {1200, {{300}}, {300, 360, 150, 150, 80, 160}},
        {1200, {{300, 300}}, {300, 300, 150, 150, 80, 160}},
        {1200, {{{}, 100, {}, 400}}, {212, 230, 136, 400, 80, 142}},
    };
    for (const auto& [available, dragged, widths] : cases)
        EXPECT_EQ(ResultsColumns::widths(available, dragged), widths) << available;

    const ResultsColumns::Dragged dragged = {{300, {}, 130, {}, {}, 4000}};
    EXPECT_EQ(ResultsColumns::encoded(dragged), "300 0 130 0 0 4000");
    EXPECT_EQ(ResultsColumns::decoded("300 0 130 0 0 4000"), dragged);
    EXPECT_EQ(ResultsColumns::decoded("300 -5 130 99 90 4000"), dragged) << "out of bounds";
    for (const char* text : {"", "300", "300 0 130 0 0 4000 1", "300 0 130 0 0 4000 ",
                             "a 0 0 0 0 0", "300 0 99999999999 0 0 0", "300  0 130 0 0 0"})
        EXPECT_EQ(ResultsColumns::decoded(text), ResultsColumns::Dragged()) << text;
}

class ResultsTableTest : public ResultsTest {
protected:
    static constexpr int rowHeight = 40;

    /// Native ones only: they stand in the order of their names.
    static std::vector<ScanItem> items(int count) {
        auto result = ResultsTest::items(count);
        for (ScanItem& item : result)
            item.status = CompatibilityStatus::native;
        return result;
    }
    void open(int count = 0) {
        if (count > 0)
            show(items(count));
        view = std::make_unique<ResultsTableView>(*coordinator, workspace, preferences, theme);
        table = &find<ResultsTable>(*view, "resultsTable");
        view->resize(840, 430);
        view->show();
        turn();
    }
    std::string text(int row, int column) const {
        return rowsOf(*table->model(), row, row)[0][static_cast<std::size_t>(column)];
    }
    QPoint middle(int row, int column) const {
        return table->visualRect(table->model()->index(row, column)).center();
    }
    QPoint link(int row) const {
        return {table->columnViewportPosition(5) + 20, middle(row, 5).y()};
    }
    void click(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseClick(table->viewport(), button, {}, point);
    }
    /// Of the coordinator and the table.
    std::string selected() const {
        const auto item = coordinator->selectedItem();
        const QModelIndexList rows = table->selectionModel()->selectedRows();
        EXPECT_EQ(rows.size(), item ? 1 : 0);
        EXPECT_TRUE(rows.isEmpty() || rows.front().data().toString().toStdString() == item->name);
        return item ? item->name : "";
    }
    std::string topName() const { return text(table->indexAt({0, 0}).row(), 0); }

    std::unique_ptr<ResultsTableView> view;
    ResultsTable* table = nullptr;
};

TEST_F(ResultsTableTest, TheInvitationStandsOnlyWhereNothingIsAndNothingIsComing) {
    open();
    auto* button = &find<QPushButton>(*view, "startScanButton");
    EXPECT_TRUE(button->isVisible() && !table->isVisible());
    waitForStop();
    QTest::mouseClick(button, Qt::LeftButton);
    turn();
    EXPECT_TRUE(!button->isVisible() && table->isVisible());
    coordinator->scanTask().get()->request_stop();
    finishScan();
    turn();
    EXPECT_TRUE(button->isVisible());
    show(items(3));
    coordinator->setSearchText("nothing like it");
    turn();
    EXPECT_TRUE(!button->isVisible() && table->model()->rowCount() == 0);
}

TEST_F(ResultsTableTest, DraggedColumnsAreKeptUntilADoubleClick) {
    const std::vector<int> dragged = {184, 722, 200, 150, 80, 164}; // the rows' inset at both ends
    for (const bool isFirst : {true, false}) {
        open(3);
        if (isFirst) {
            for (const auto& [column, width] : {std::pair(0, 10), {2, 200}, {4, 300}})
                table->header()->resizeSection(column, width);
        }
        view->resize(1500, 430);
        turn();
        for (int column = 0; column < 6; ++column)
            EXPECT_EQ(table->columnWidth(column), dragged[static_cast<std::size_t>(column)]);
    }
    Q_EMIT table->header()->sectionHandleDoubleClicked(0);
    Q_EMIT table->header()->sectionHandleDoubleClicked(2);
    EXPECT_EQ(preferences.layout(QStringLiteral("resultColumns")), "0 0 0 0 0 0");
    EXPECT_EQ(table->header()->length(), 1500);
}

TEST_F(ResultsTableTest, TheMenuOffersWhatCanBeDoneWithTheItemUnderThePointer) {
    open(4);
    const auto entries = [&](QContextMenuEvent::Reason reason, const QPoint& point = {}) {
        if (reason == QContextMenuEvent::Mouse)
            click(point, Qt::RightButton);
        QContextMenuEvent event(reason, point, QPoint());
        QCoreApplication::sendEvent(reason == QContextMenuEvent::Mouse ? table->viewport() : table,
                                    &event);
        std::string texts;
        for (auto* menu : table->findChildren<QMenu*>()) {
            for (QAction* action : menu->actions()) {
                texts += action->text().toStdString() + "\n";
                action->trigger();
            }
            delete menu;
        }
        return texts;
    };
    const std::string both = "Im Finder zeigen\nUpdate prüfen\n";
    EXPECT_EQ(entries(QContextMenuEvent::Keyboard), "");
    EXPECT_EQ(entries(QContextMenuEvent::Mouse, middle(1, 1)), "Im Finder zeigen\n");
    EXPECT_EQ(entries(QContextMenuEvent::Mouse, middle(2, 3)), both);
    EXPECT_EQ(selected(), "App 1002");
    EXPECT_EQ(entries(QContextMenuEvent::Keyboard), both) << "of the selected row";
    EXPECT_EQ(entries(QContextMenuEvent::Mouse, {100, 300}), "") << "below the rows";
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(workspace.calls,
              test::Texts({"reveal /Applications/App 1001.app", "reveal /Applications/App 1002.app",
                           "reveal /Applications/App 1002.app"}));
    EXPECT_EQ(checks.size(), 2U);
    const auto id = coordinator->items().get()[3].id;
    coordinator->setSearchText("nothing like it");
    EXPECT_NE(table->contextMenu(id), nullptr) << "filters do not matter";
    show({});
    EXPECT_EQ(table->contextMenu(id), nullptr);
}

TEST_F(ResultsTableTest, AnUpdateIsCheckedByAClickOnTheLinkAndByTheSpaceKey) {
    open(6);
    click(link(1));
    click(middle(0, 3));
    QTest::mousePress(table->viewport(), Qt::LeftButton, {}, link(0));
    QTest::mouseRelease(table->viewport(), Qt::LeftButton, {}, link(2));
    EXPECT_EQ(checks.size(), 0U) << "no link, beside it, let go on another";
    click(link(2));
    click(link(2));
    QTest::keyClick(table, Qt::Key_Space);
    EXPECT_EQ(checks.size(), 1U) << "it is running";
    for (const auto key : {Qt::Key_Down, Qt::Key_Space, Qt::Key_Down, Qt::Key_Space})
        QTest::keyClick(table, key);
    turn();
    EXPECT_EQ(checks.size(), 2U);
    EXPECT_EQ(selected(), "App 1004");
    EXPECT_EQ(text(2, 5) + text(3, 5) + text(4, 5), "Prüfe …Nicht signiertPrüfe …");
    click({100, 300});
    EXPECT_EQ(selected(), "") << "below the rows";
}

TEST_F(ResultsTableTest, TheKeyboardMovesTheSelectionAndFindsNames) {
    open(60);
    for (const auto& [key, name] : {std::pair(Qt::Key_Down, "App 1000"),
                                    {Qt::Key_End, "App 1059"},
                                    {Qt::Key_Home, "App 1000"}}) {
        QTest::keyClick(table, key);
        EXPECT_EQ(selected(), name);
    }
    click(middle(3, 4));
    QTest::keyClicks(table, QStringLiteral("app 1042"));
    EXPECT_EQ(selected(), "App 1042");
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier, middle(42, 0));
    EXPECT_EQ(selected(), "");
}

TEST_F(ResultsTableTest, ScrollPlaceAndSelectionOutlastFiltersAndScans) {
    open(200);
    QScrollBar* bar = table->verticalScrollBar();
    bar->setValue(100 * rowHeight + 7);
    coordinator->setSelection(coordinator->items().get()[150].id);
    const std::tuple<const char*, const char*, const char*> steps[] = {
        {"1", "App 1100", "App 1150"}, // all are left, and nothing scrolls to the selected one
        {"5", "App 1105", "App 1150"}, // the next one that is left
        {"", "App 1105", "App 1150"},  {"app 119", "App 1190", ""}, // no other one takes its place
        {"", "App 1190", ""},
    };
    for (const auto& [search, top, name] : steps) {
        coordinator->setSearchText(search);
        turn();
        EXPECT_EQ(topName(), top) << search;
        EXPECT_EQ(selected(), name) << search;
    }
    bar->setValue(50 * rowHeight);
    show(items(190));
    turn();
    EXPECT_EQ(topName(), "App 1050") << "the place, where all are new";
    show(items(190));
    click({300, 60});
    EXPECT_EQ(coordinator->selection().get(), std::nullopt) << "a row of the scan before";
    turn();
    EXPECT_EQ(selected(), "");
}

TEST_F(ResultsTableTest, FourHundredResultsAreOneRefreshAndTheWheelTurnsMeanwhile) {
    open(800);
    const auto hasWheel = [&] {
        table->viewport()->repaint();
        return std::ranges::any_of(QAbstractEventDispatcher::instance()->registeredTimers(table),
                                   [](const auto& timer) { return timer.interval == 80; });
    };
    EXPECT_FALSE(hasWheel());
    coordinator->checkAllUpdates();
    turn();
    EXPECT_TRUE(hasWheel());
    ASSERT_EQ(checks.size(), 400U);
    QSignalSpy changes(table->model(), &QAbstractItemModel::dataChanged);
    QSignalSpy resets(table->model(), &QAbstractItemModel::modelReset);
    for (const auto& onResult : checks)
        onResult(UpdateCheckResult::upToDate("1.0"));
    queue.drain();
    turn();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(text(0, 5) + text(798, 5), "Aktuell (1.0)Aktuell (1.0)");
}

} // namespace
} // namespace veridane::ui
