#include "ui/Sheet.h"

#include "ui/InterfaceLanguage.h"
#include "ui/RosettaInstallGuide.h"
#include "ui/WindowFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <QVariantAnimation>
#include <QWindow>

#include <chrono>
#include <vector>

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
    Texts focusOnTheWay(Qt::Key key, int steps) {
        Texts passed;
        for (int i = 0; i < steps; ++i) {
            QTest::keyClick(window.focusWidget(), key);
            passed.push_back(window.focusWidget()->objectName().toStdString());
        }
        return passed;
    }
    std::string copyTitle() {
        return find<QPushButton>(*guide, "copyCommandButton").text().toStdString();
    }

    ContentView window{contentServices(), {"UITEST_SEED_DATA"}};
    QWidget* table = &find(window, "resultsTable");
    std::vector<std::chrono::milliseconds> delays;
    std::vector<std::function<void()>> delayed;
    RosettaInstallGuide* guide = nullptr;
    QPointer<Sheet> sheet;
};

TEST_F(SheetTest, TheKeyboardStaysInsideUntilItIsClosed) {
    EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("doneButton"));
    EXPECT_EQ(focusOnTheWay(Qt::Key_Tab, 4), (Texts{"copyCommandButton", "openTerminalButton",
                                                    "doneButton", "copyCommandButton"}));
    EXPECT_EQ(focusOnTheWay(Qt::Key_Backtab, 1), Texts{"doneButton"});
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier); // to the search field
    turn();
    EXPECT_TRUE(sheet->isAncestorOf(window.focusWidget()));
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
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
    focusOnTheWay(Qt::Key_Tab, 1);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
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
    const auto isCentred = [&] {
        const QPoint off = guide->geometry().center() - window.rect().center();
        return off.manhattanLength() <= 2;
    };
    sheet->findChild<QVariantAnimation*>()->setCurrentTime(1000);
    EXPECT_EQ(guide->size(), QSize(480, guide->heightForWidth(480)));
    EXPECT_TRUE(isCentred());
    window.resize(1200, 900);
    turn();
    EXPECT_TRUE(isCentred());
}

TEST_F(SheetTest, TheCommandIsCopiedAndSaidToBeForAWhile) {
    QGuiApplication::clipboard()->setText(QStringLiteral("something else"));
    auto& copy = find<QPushButton>(*guide, "copyCommandButton");
    EXPECT_EQ(copyTitle(), "Kopieren");
    copy.click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QStringLiteral("softwareupdate --install-rosetta"));
    EXPECT_EQ(copyTitle(), "Kopiert");
    copy.click();
    EXPECT_EQ(delays, (std::vector{1500ms, 1500ms}));
    delayed.front()();
    EXPECT_EQ(copyTitle(), "Kopieren") << "the first press is not forgotten";
    copy.click();
    sheet->close();
    EXPECT_TRUE(isClosed());
    open();
    EXPECT_EQ(copyTitle(), "Kopieren");

    auto& command = find<QLabel>(*guide, "commandLabel");
    QTest::mouseClick(&command, Qt::LeftButton);
    EXPECT_TRUE(command.hasFocus());
    QTest::keyClick(&command, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(command.selectedText(), QStringLiteral("softwareupdate --install-rosetta"));
}

TEST_F(SheetTest, TheTerminalIsOpenedAndTheLanguageFollowed) {
    find<QPushButton>(*guide, "openTerminalButton").click();
    EXPECT_EQ(workspace.calls, Texts{"start Terminal"});
    InterfaceLanguage language;
    language.apply(AppLanguage::english);
    turn();
    EXPECT_EQ(copyTitle(), "Copy");
    EXPECT_EQ(sheet->content()->accessibleName(), QStringLiteral("Install Rosetta 2"));
    language.apply(AppLanguage::german);
}

} // namespace
} // namespace veridane::test
