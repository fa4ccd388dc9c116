#include "ui/Sheet.h"

#include "ui/RosettaInstallGuide.h"
#include "ui/WindowFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVariantAnimation>
#include <QWindow>

namespace veridane::test {
namespace {

using namespace veridane::ui;
using namespace std::chrono_literals;

/// The guide over the main window, which stands for any view.
class SheetTest : public WindowTest {
protected:
    SheetTest() {
        window.show();
        turn();
        window.activateWindow();
        turn();
        open();
    }
    void open() {
        guide = new RosettaInstallGuide(
            workspace, theme, [this](std::chrono::milliseconds time, QObject*, auto task) {
                delays.push_back(time);
                delayed.push_back(std::move(task));
            });
        sheet = new Sheet(theme, guide, window);
        QObject::connect(guide, &RosettaInstallGuide::closeRequested, sheet, &QWidget::close);
        turn();
    }
    bool isClosed() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return !sheet;
    }
    std::string copyTitle() {
        return find<QPushButton>(*guide, "copyCommandButton").text().toStdString();
    }

    const QString command = QStringLiteral("softwareupdate --install-rosetta");
    ContentView window{contentServices(), {"UITEST_SEED_DATA"}};
    QWidget* table = &find(window, "resultsTable");
    std::vector<std::chrono::milliseconds> delays;
    std::vector<std::function<void()>> delayed;
    RosettaInstallGuide* guide = nullptr;
    QPointer<Sheet> sheet;
};

TEST_F(SheetTest, TheKeyboardStaysInsideUntilItIsClosed) {
    EXPECT_EQ(focusedName(), "doneButton");
    for (const char* next :
         {"copyCommandButton", "openTerminalButton", "doneButton", "copyCommandButton"}) {
        press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), next);
    }
    press(Qt::Key_Backtab);
    EXPECT_EQ(focusedName(), "doneButton");
    press(Qt::Key_F, Qt::ControlModifier); // to the search field
    EXPECT_TRUE(sheet->isAncestorOf(window.focusWidget()));
    press(Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(window.focusWidget(), table);
}

TEST_F(SheetTest, TheFocusGoesOnWhereItCannotComeBack) {
    sheet->close();
    auto& button = find(window, "scanButton");
    button.setFocus();
    open();
    button.setEnabled(false);
    sheet->close();
    EXPECT_EQ(window.focusWidget(), table);
}

TEST_F(SheetTest, ReturnPressesTheDefaultButtonWhereverTheFocusIs) {
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(delayed.empty()) << "nothing was copied";
}

TEST_F(SheetTest, TheWindowBehindTakesNoClicksAndGoesOn) {
    const auto click = [&](const char* name) {
        QWidget& button = find(window, name);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                          button.mapTo(&window, button.rect().center()));
        turn();
    };
    click("readyTile");
    EXPECT_EQ(coordinator->statusFilter().get(), StatusFilter::all);
    coordinator->setSearchText("native");
    turn();
    EXPECT_EQ(static_cast<QTreeView*>(table)->model()->rowCount(), 1);
    sheet->close();
    EXPECT_TRUE(isClosed());
    click("readyTile");
    EXPECT_EQ(coordinator->statusFilter().get(), StatusFilter::ready);
}

TEST_F(SheetTest, ItStandsInTheMiddleAndIsAsHighAsItsTexts) {
    sheet->findChild<QVariantAnimation*>()->setCurrentTime(1000);
    for (const QSize& size : {window.size(), QSize(1200, 900)}) {
        window.resize(size);
        turn();
        EXPECT_EQ(guide->size(), QSize(480, guide->heightForWidth(480)));
        const QPoint off = guide->geometry().center() - window.rect().center();
        EXPECT_LE(off.manhattanLength(), 2);
    }
}

TEST_F(SheetTest, TheCommandIsCopiedAndSaidToBeForAWhile) {
    QGuiApplication::clipboard()->setText(QStringLiteral("something else"));
    auto& copy = find<QPushButton>(*guide, "copyCommandButton");
    EXPECT_EQ(copyTitle(), "Kopieren");
    copy.click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), command);
    EXPECT_EQ(copyTitle(), "Kopiert");
    copy.click();
    EXPECT_EQ(delays, (std::vector{1500ms, 1500ms}));
    delayed.front()();
    EXPECT_EQ(copyTitle(), "Kopieren") << "the first press is not forgotten";
    sheet->close();
    EXPECT_TRUE(isClosed());
}

TEST_F(SheetTest, TheCommandCanBeSelectedAndTheTerminalOpened) {
    auto& label = find<QLabel>(*guide, "commandLabel");
    QTest::mouseClick(&label, Qt::LeftButton);
    EXPECT_TRUE(label.hasFocus());
    QTest::keyClick(&label, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(label.selectedText(), command);
    find<QPushButton>(*guide, "openTerminalButton").click();
    EXPECT_EQ(workspace.calls, Texts{"start Terminal"});
}

} // namespace
} // namespace veridane::test
