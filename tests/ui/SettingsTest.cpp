#include "coordination/MakerSite.h"
#include "ui/ApplicationLook.h"
#include "ui/Relauncher.h"
#include "ui/SettingsView.h"
#include "ui/Text.h"
#include "ui/WindowFixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>

namespace veridane::test {
namespace {

using namespace veridane::ui;

class CountingRelauncher : public Relauncher {
public:
    void relaunch() override { ++calls; }

    int calls = 0;
};

class SettingsTest : public WindowTest {
protected:
    static Texts chosenSegments(const SettingsView& settings) {
        turn();
        Texts chosen;
        for (const char* name : {"systemSegment", "lightSegment", "darkSegment"})
            if (find<QAbstractButton>(settings, name).isChecked())
                chosen.emplace_back(name);
        return chosen;
    }
    void chooseLanguage(int index) {
        auto& languages = find<QComboBox>(view, "languageComboBox");
        languages.setCurrentIndex(index);
        Q_EMIT languages.activated(index);
        turn();
    }
    void open() {
        view.show();
        QApplication::setActiveWindow(&view);
        turn();
    }
    /// The names of what the Tab key reaches until it comes back.
    Texts tabOrder() {
        Texts order;
        do {
            order.push_back(focusedName());
            press(Qt::Key_Tab);
        } while (focusedName() != order.front() && order.size() < 20);
        return order;
    }

    CountingRelauncher relauncher;
    ApplicationLook look{theme};
    SettingsView view{preferences, workspace, relauncher, theme};
    QTabWidget& tabs = find<QTabWidget>(view, "settingsTabWidget");
};

TEST_F(SettingsTest, EachSegmentIsTheOnlyChoiceOnceItIsPressedOrReachedByArrow) {
    open();
    EXPECT_EQ(chosenSegments(view), Texts{"systemSegment"});
    for (const char* name : {"lightSegment", "darkSegment", "lightSegment", "systemSegment"}) {
        find<QAbstractButton>(view, name).click();
        EXPECT_EQ(chosenSegments(view), Texts{name});
    }
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    EXPECT_EQ(chosenSegments(view), Texts{"lightSegment"});
    EXPECT_EQ(preferences.appearanceMode(), AppearanceMode::light);
    EXPECT_FALSE(find(view, "restartButton").isVisible()) << "it is there at once";
}

TEST_F(SettingsTest, UnknownTextsCountAsTheSystemsUntilAnotherIsChosen) {
    data.file("/other.conf", "[General]\nappearanceMode=sepia\nappLanguage=klingon\n");
    {
        Preferences other(toQString(data.hostPath("/other.conf")));
        const SettingsView otherView(other, workspace, relauncher, theme);
        EXPECT_EQ(chosenSegments(otherView), Texts());
        auto& languages = find<QComboBox>(otherView, "languageComboBox");
        EXPECT_EQ(languages.currentText(), QStringLiteral("System"));
        Q_EMIT languages.activated(0);
        find<QAbstractButton>(otherView, "darkSegment").click();
    }
    EXPECT_EQ(textOf(data.hostPath("/other.conf")),
              "[General]\nappLanguage=system\nappearanceMode=dark\n");
}

TEST_F(SettingsTest, AChangeOfTheLanguageIsStoredAndThenHintsAtTheRestartWhileTheWindowLives) {
    open();
    auto& restart = find<QAbstractButton>(view, "restartButton");
    chooseLanguage(0);
    EXPECT_FALSE(restart.isVisible()) << "the same as before";
    bool wasVisible = true;
    const Subscription onStored =
        preferences.languageRaw().observe([&] { wasVisible = restart.isVisible(); });
    const std::pair<int, const char*> choices[] = {
        {1, "[General]\nAppleLanguages=de\nappLanguage=german\n"},
        {2, "[General]\nAppleLanguages=en\nappLanguage=english\n"},
        {0, "[General]\nappLanguage=system\n"},
    };
    for (const auto& [index, kept] : choices) {
        chooseLanguage(index);
        EXPECT_EQ(wasVisible, index != 1) << "only after it has been stored";
        EXPECT_EQ(textOf(data.hostPath("/Veridane.conf")), kept);
        EXPECT_TRUE(restart.isVisible()) << kept;
    }
    const SettingsView again(preferences, workspace, relauncher, theme);
    EXPECT_TRUE(find(again, "restartButton").parentWidget()->parentWidget()->isHidden());

    find(view, "languageComboBox").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(relauncher.calls, 0) << "nobody has pressed the button";
    restart.click();
    EXPECT_EQ(relauncher.calls, 1);
}

TEST_F(SettingsTest, KeysAndPointerChangeTheTabAndEscapeCloses) {
    open();
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, int> keys[] = {
        {Qt::Key_Right, Qt::NoModifier, 1},
        {Qt::Key_Left, Qt::NoModifier, 0},
        {Qt::Key_Tab, Qt::ControlModifier, 1},
    };
    for (const auto& [key, modifiers, tab] : keys) {
        press(key, modifiers);
        EXPECT_EQ(tabs.currentIndex(), tab);
    }
    QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(0).center());
    EXPECT_EQ(tabs.currentIndex(), 0);
    press(Qt::Key_Escape);
    EXPECT_FALSE(view.isVisible());
}

TEST_F(SettingsTest, APageHasTheWindowsColourUpToItsEdgesInBothAppearances) {
    open();
    for (const AppearanceMode mode : {AppearanceMode::dark, AppearanceMode::light}) {
        theme.setMode(mode);
        turn();
        const QImage picture = view.grab().toImage();
        for (const QPoint& edge : {QPoint(0, 200), picture.rect().bottomRight()})
            EXPECT_EQ(picture.pixelColor(edge), theme.colours().window);
    }
}

TEST_F(SettingsTest, EveryLinkOpensItsAddress) {
    const std::string site = MakerSite::root();
    const std::pair<const char*, std::string> links[] = {
        {"appsCard", site},
        {"termsLinkRow", site + "/agb"},
        {"privacyLinkRow", site + "/datenschutz"},
        {"legalNoticeLinkRow", site + "/impressum"},
        {"withdrawalLinkRow", site + "/widerruf"},
        {"helpLinkRow", site + "/help"},
        {"contactLinkButton", "mailto:hallo@mirefold.example"},
    };
    for (const auto& [name, address] : links) {
        find<QAbstractButton>(view, name).click();
        EXPECT_EQ(workspace.calls.back(), address);
    }
}

TEST_F(SettingsTest, TheTabKeyGoesThroughAPageAndBringsIntoViewWhatItReaches) {
    const std::string bar = "qt_tabwidget_tabbar";
    open();
    chooseLanguage(1);
    EXPECT_EQ(tabOrder(), (Texts{bar, "systemSegment", "languageComboBox", "restartButton"}));
    tabs.setCurrentIndex(1);
    EXPECT_EQ(tabOrder(),
              (Texts{bar, "appsCard", "termsLinkRow", "privacyLinkRow", "legalNoticeLinkRow",
                     "withdrawalLinkRow", "helpLinkRow", "contactLinkButton"}));
    const auto isInView = [&](const char* name) {
        const QWidget& viewport = *find<QScrollArea>(view, "aboutScrollArea").viewport();
        const QWidget& link = find(view, name);
        return viewport.rect().contains(QRect(link.mapTo(&viewport, QPoint()), link.size()));
    };
    press(Qt::Key_Backtab);
    EXPECT_TRUE(isInView("contactLinkButton")) << "backwards from above";
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_TRUE(isInView("appsCard")) << "and to the top again";
    find(view, "contactLinkButton").setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(isInView("contactLinkButton")) << "it would escape the pointer";
}

} // namespace
} // namespace veridane::test
