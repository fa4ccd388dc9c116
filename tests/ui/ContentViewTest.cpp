#include "ui/WindowFixture.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

namespace veridane::test {
namespace {

using namespace veridane::ui;

class ContentViewTest : public WindowTest {
protected:
    void open(std::vector<std::string> arguments = {"UITEST_SEED_DATA"}) {
        window.reset();
        ContentServices services = contentServices();
        if (greets)
            services.makeWelcome = [this] {
                return makeWelcome();
            };
        window = std::make_unique<ContentView>(services, std::move(arguments));
        window->show();
        turn();
    }

    bool greets = false;
    std::unique_ptr<ContentView> window;
};

TEST_F(ContentViewTest, TheFirstStartScansAndLaterOnesShowWhatIsKept) {
    open({});
    EXPECT_TRUE(coordinator->isScanning().get());
    finishScan();
    window.reset();
    start(); // which finds the kept scan
    open({});
    EXPECT_FALSE(coordinator->isScanning().get());
}

TEST_F(ContentViewTest, EveryStartGreetsTheUserWhileTheWorkGoesOn) {
    greets = true;
    show({sampleItem("Alpha", CompatibilityStatus::native)});
    for (int run = 0; run < 2; ++run) {
        start(); // which finds the kept scan
        open({});
        const auto* welcome = window->findChild<WelcomeView*>();
        ASSERT_TRUE(welcome);
        EXPECT_EQ(welcome->size(), QSize(520, 700));
        EXPECT_EQ(shownNames(), Texts{"Alpha"});
        find<QAbstractButton>(*welcome, "dismissButton").click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(window->findChild<WelcomeView*>());
    }
    waitForStop();
    open({});
    QTest::keyClick(window.get(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(coordinator->isScanning().get()) << "behind the sheet";
    coordinator->scanTask().get()->request_stop();
    open();
    EXPECT_FALSE(window->findChild<WelcomeView*>()) << "nobody is greeted with seed data";
}

TEST_F(ContentViewTest, TheBannerStaysUntilAScanFindsAccess) {
    open();
    const auto isShown = [&] {
        turn();
        return find(*window, "FullDiskAccessBanner").isVisible();
    };
    EXPECT_TRUE(isShown());
    find<QAbstractButton>(*window, "openSystemSettingsButton").click();
    EXPECT_EQ(workspace.calls.size(), 1);
    volume.file("/Library/Application Support/com.apple.TCC/TCC.db", "");
    EXPECT_TRUE(isShown());
    show({});
    EXPECT_FALSE(isShown());
}

TEST_F(ContentViewTest, TheGuideOpensFromTheDetails) {
    open();
    coordinator->setSelection(coordinator->filteredItems().front()->id);
    turn();
    for (int press = 0; press < 2; ++press) // as assistive technology can behind a sheet
        find<QAbstractButton>(*window, "installRosettaButton").click();
    EXPECT_EQ(focusedName(), "doneButton");
    find<QAbstractButton>(*window, "doneButton").click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window->findChild<QWidget*>(QStringLiteral("RosettaInstallGuide")));
}

TEST_F(ContentViewTest, ToolsFollowTheScanAndTheItems) {
    const Texts all = {"scanButton",     "checkUpdatesButton", "exportButton",
                       "settingsButton", "scanAgainAction",    "exportCSVAction"};
    const auto enabled = [&] {
        Texts names = all;
        std::erase_if(names, [&](const std::string& name) {
            return !find<QObject>(*window, name.c_str()).property("enabled").toBool();
        });
        return names;
    };
    waitForStop();
    open({}); // scans, with nothing to show yet
    EXPECT_EQ(enabled(), Texts{"settingsButton"});
    coordinator->scanTask().get()->request_stop();
    finishScan();
    open();
    EXPECT_EQ(enabled(), all);
    QTest::keyClick(window.get(), Qt::Key_R, Qt::ControlModifier);
    turn();
    EXPECT_TRUE(coordinator->isScanning().get());
    EXPECT_EQ(enabled(), (Texts{"exportButton", "settingsButton", "exportCSVAction"}));
}

TEST_F(ContentViewTest, TheSearchFieldAndTheSearchedTextFollowEachOther) {
    open();
    auto& field = find<QLineEdit>(*window, "searchLineEdit");
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    turn();
    EXPECT_EQ(window->focusWidget(), &field);
    QTest::keyClicks(&field, QStringLiteral("in"));
    EXPECT_EQ(coordinator->searchText().get(), "in");
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(coordinator->searchText().get(), "");
    coordinator->setSearchText("native");
    turn();
    EXPECT_EQ(field.text(), QStringLiteral("native"));
    window.reset();
    EXPECT_EQ(occurrences(log(), "event=search_text_changed"), 4);
}

TEST_F(ContentViewTest, SettingsAreAskedForByButtonAndKeys) {
    open();
    const QSignalSpy spy(window.get(), &ContentView::settingsRequested);
    find<QToolButton>(*window, "settingsButton").click();
    QTest::keyClick(window.get(), Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(spy.count(), 2);
}

TEST_F(ContentViewTest, SizesHaveTheirLimitsAndAreRemembered) {
    open();
    window->resize(10, 10);
    EXPECT_EQ(window->size(), QSize(1180, 720));
    window->resize(1300, 750);
    auto& columns = *window->findChild<QSplitter*>();
    columns.setSizes({280, 1019});
    turn();
    window->close();
    open();
    EXPECT_EQ(window->size(), QSize(1300, 750));
    EXPECT_EQ(window->findChild<QSplitter*>()->sizes().front(), 280);
}

TEST_F(ContentViewTest, WhatIsSelectedAtTheStartIsShownSelected) {
    open();
    coordinator->setSelection(coordinator->filteredItems().back()->id);
    open({});
    const auto& table = find<QTreeView>(*window, "resultsTable");
    ASSERT_EQ(table.selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(table.selectionModel()->selectedRows().front().row(), 1);
}

TEST_F(ContentViewTest, TheTabKeyGoesAroundEverythingFromLeftToRight) {
    std::istringstream order(
        "detailScrollArea searchNativeButton searchAppStoreButton revealButton "
        "installRosettaButton statusallSidebarRow applicationSidebarRow vendorsDisclosureButton "
        "allVendorsSidebarRow scanButton checkUpdatesButton exportButton settingsButton "
        "searchLineEdit openSystemSettingsButton readinessButton totalTile breaksOnMacOS28Tile "
        "partiallyAffectedTile switchToNativeTile readyTile resultsTable");
    open();
    coordinator->setKindFilter(ItemKind::application);
    coordinator->setSelection(coordinator->items().get().front().id);
    turn();
    window->activateWindow();
    turn();
    for (std::string next; order >> next;) {
        press(Qt::Key_Tab);
        ASSERT_EQ(focusedName(), next);
    }
}

} // namespace
} // namespace veridane::test
