#include "ui/ContentView.h"

#include "ui/QuietServices.h"
#include "ui/WelcomeView.h"
#include "ui/WindowFixture.h"

#include <QAction>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>
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
                return std::make_unique<WelcomeView>(
                    WelcomeServices{network, queue, workspace,
                                    std::make_unique<SteadyPath>(PathStatus::satisfied)},
                    theme);
            };
        window = std::make_unique<ContentView>(services, std::move(arguments));
        window->show();
        turn();
    }
    bool isEnabled(const char* name) { return find(*window, name).isEnabled(); }
    bool isActionEnabled(const char* name) { return find<QAction>(*window, name).isEnabled(); }

    bool greets = false;
    UnreachableNetwork network;
    std::unique_ptr<ContentView> window;
};

TEST_F(ContentViewTest, TheFirstStartScansAndLaterOnesShowWhatIsKept) {
    engine = [](const auto&, const auto&, const auto&) {
        return std::vector{sampleItem("Alpha", CompatibilityStatus::native)};
    };
    open({});
    EXPECT_TRUE(coordinator->isScanning().get());
    finishScan();
    window.reset();
    start(); // the kept scan is there now
    open({});
    EXPECT_FALSE(coordinator->isScanning().get());
    EXPECT_EQ(shownNames(), Texts{"Alpha"});
}

TEST_F(ContentViewTest, SeedDataIsShownWithoutAScan) {
    open();
    EXPECT_FALSE(coordinator->isScanning().get());
    EXPECT_EQ(shownNames().size(), 2);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Veridane"));
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
    volume.folder("/Library/Application Support/com.apple.TCC");
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
    EXPECT_EQ(window->focusWidget()->objectName(), QStringLiteral("doneButton"));
    find<QAbstractButton>(*window, "doneButton").click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window->findChild<QWidget*>(QStringLiteral("RosettaInstallGuide")));
}

TEST_F(ContentViewTest, ToolsFollowTheScanAndTheItems) {
    waitForStop();
    const auto states = [&] {
        return std::vector{isEnabled("scanButton"),
                           isEnabled("checkUpdatesButton"),
                           isEnabled("exportButton"),
                           isEnabled("settingsButton"),
                           isActionEnabled("scanAgainAction"),
                           isActionEnabled("exportCSVAction")};
    };
    open({}); // scans, with nothing to show yet
    EXPECT_EQ(states(), (std::vector{false, false, false, true, false, false}));
    coordinator->scanTask().get()->request_stop();
    finishScan();
    open();
    EXPECT_EQ(states(), (std::vector{true, true, true, true, true, true}));
    QTest::keyClick(window.get(), Qt::Key_R, Qt::ControlModifier);
    turn();
    EXPECT_TRUE(coordinator->isScanning().get());
    EXPECT_EQ(states(), (std::vector{false, false, true, true, false, true}));
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

TEST_F(ContentViewTest, EachExportProposesItsNameAndSettingsAreAskedFor) {
    open();
    coordinator->setSearchText("no row");
    for (const char* name : {"exportCSVAction", "exportJSONAction", "exportMarkdownAction"})
        find<QAction>(*window, name).trigger();
    EXPECT_EQ(savePanel.proposedNames,
              (Texts{"rosetta-bericht.csv", "rosetta-bericht.json", "rosetta-bericht.md"}));
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
    open();
    coordinator->setKindFilter(ItemKind::application);
    coordinator->setSelection(coordinator->items().get().front().id);
    turn();
    window->activateWindow();
    turn();
    Texts passed;
    do {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        passed.push_back(window->focusWidget()->objectName().toStdString());
    } while (passed.back() != "resultsTable" && passed.size() < 30);
    EXPECT_EQ(passed, (Texts{"detailScrollArea",
                             "searchNativeButton",
                             "searchAppStoreButton",
                             "revealButton",
                             "installRosettaButton",
                             "statusallSidebarRow",
                             "applicationSidebarRow",
                             "vendorsDisclosureButton",
                             "allVendorsSidebarRow",
                             "scanButton",
                             "checkUpdatesButton",
                             "exportButton",
                             "settingsButton",
                             "searchLineEdit",
                             "openSystemSettingsButton",
                             "readinessButton",
                             "totalTile",
                             "breaksOnMacOS28Tile",
                             "partiallyAffectedTile",
                             "switchToNativeTile",
                             "readyTile",
                             "resultsTable"}));
}

} // namespace
} // namespace veridane::test
