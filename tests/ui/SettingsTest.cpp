#include "ui/ApplicationLook.h"
#include "ui/InterfaceLanguage.h"
#include "ui/Label.h"
#include "ui/Relauncher.h"
#include "ui/SettingsView.h"
#include "ui/Text.h"
#include "ui/WindowFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <cstdlib>
#include <fstream>

namespace veridane::test {
namespace {

using namespace veridane::ui;

class CountingRelauncher : public Relauncher {
public:
    void relaunch() override { ++calls; }

    int calls = 0;
};

/// But for the rounding of what is translucent.
bool isLike(const QColor& one, const QColor& other) {
    return std::abs(one.red() - other.red()) <= 1 && std::abs(one.green() - other.green()) <= 1 &&
           std::abs(one.blue() - other.blue()) <= 1;
}

class SettingsTest : public WindowTest {
protected:
    Texts chosenSegments() {
        turn();
        Texts chosen;
        for (const char* name : {"systemSegment", "lightSegment", "darkSegment"})
            if (find<QAbstractButton>(view, name).isChecked())
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
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : &view, key, modifiers);
        turn();
    }
    static std::string focusedName() {
        const QWidget* focused = QApplication::focusWidget();
        return focused ? focused->objectName().toStdString() : "none";
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
    /// All that can be read on the page that is shown, as it stands in the tree of assistive
    /// technology.
    Texts shownTexts() {
        turn();
        Texts texts;
        for (const auto* widget : tabs.currentWidget()->findChildren<QWidget*>()) {
            const auto* label = qobject_cast<const Label*>(widget);
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            if ((label || button) && widget->isVisibleTo(&view))
                texts.push_back(QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))
                                    ->text(QAccessible::Name)
                                    .toStdString());
        }
        return texts;
    }

    CountingRelauncher relauncher;
    ApplicationLook look{theme};
    SettingsView view{preferences, workspace, relauncher, theme};
    QTabWidget& tabs = find<QTabWidget>(view, "settingsTabWidget");
};

TEST_F(SettingsTest, EachSegmentIsTheOnlyChoiceOnceItIsPressedOrReachedByArrow) {
    open();
    EXPECT_EQ(chosenSegments(), Texts{"systemSegment"});
    for (const char* name : {"lightSegment", "darkSegment", "lightSegment", "systemSegment"}) {
        find<QAbstractButton>(view, name).click();
        EXPECT_EQ(chosenSegments(), Texts{name});
    }
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    EXPECT_EQ(chosenSegments(), Texts{"lightSegment"});
    EXPECT_EQ(preferences.appearanceMode(), AppearanceMode::light);
    EXPECT_FALSE(find(view, "restartButton").isVisible()) << "it is there at once";
}

TEST_F(SettingsTest, UnknownTextsCountAsTheSystemsUntilAnotherIsChosen) {
    const std::string file = data.hostPath("/other.conf");
    std::ofstream(file) << "[General]\nappearanceMode=sepia\nappLanguage=klingon\n";
    {
        Preferences other(toQString(file));
        const SettingsView otherView(other, workspace, relauncher, theme);
        for (const char* name : {"systemSegment", "lightSegment", "darkSegment"})
            EXPECT_FALSE(find<QAbstractButton>(otherView, name).isChecked()) << name;
        auto& languages = find<QComboBox>(otherView, "languageComboBox");
        EXPECT_EQ(languages.currentText(), QStringLiteral("System"));
        Q_EMIT languages.activated(0);
        find<QAbstractButton>(otherView, "darkSegment").click();
    }
    EXPECT_EQ(textOf(file), "[General]\nappLanguage=system\nappearanceMode=dark\n");
}

TEST_F(SettingsTest, AChangeOfTheLanguageIsStoredAndThenHintsAtTheRestartWhileTheWindowLives) {
    open();
    auto& restart = find<QAbstractButton>(view, "restartButton");
    chooseLanguage(0);
    EXPECT_FALSE(restart.isVisible()) << "the same as before";
    bool wasVisible = true;
    const Subscription onStored =
        preferences.languageRaw().observe([&] { wasVisible = restart.isVisible(); });
    const struct {
        int index;
        AppLanguage language;
        const char* kept;
    } choices[] = {
        {1, AppLanguage::german, "[General]\nAppleLanguages=de\nappLanguage=german\n"},
        {2, AppLanguage::english, "[General]\nAppleLanguages=en\nappLanguage=english\n"},
        {0, AppLanguage::system, "[General]\nappLanguage=system\n"},
    };
    for (const auto& choice : choices) {
        chooseLanguage(choice.index);
        EXPECT_EQ(wasVisible, choice.index != 1) << "only after it has been stored";
        EXPECT_EQ(preferences.appLanguage(), choice.language);
        EXPECT_EQ(textOf(data.hostPath("/Veridane.conf")), choice.kept);
        EXPECT_TRUE(restart.isVisible()) << choice.kept;
    }
    const SettingsView again(preferences, workspace, relauncher, theme);
    EXPECT_TRUE(find(again, "restartButton").parentWidget()->parentWidget()->isHidden());

    find(view, "languageComboBox").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(relauncher.calls, 0) << "nobody has pressed the button";
    restart.click();
    EXPECT_EQ(relauncher.calls, 1);
}

TEST_F(SettingsTest, TabsAreChosenByPointerAndKeysAndEscapeCloses) {
    open();
    QTabBar& bar = *tabs.tabBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(1).center());
    EXPECT_EQ(tabs.currentIndex(), 1);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int tab;
    } keys[] = {
        {Qt::Key_Left, Qt::NoModifier, 0},
        {Qt::Key_Right, Qt::NoModifier, 1},
        {Qt::Key_Tab, Qt::ControlModifier, 0},
        {Qt::Key_Tab, Qt::ControlModifier, 1},
    };
    for (const auto& step : keys) {
        press(step.key, step.modifiers);
        EXPECT_EQ(tabs.currentIndex(), step.tab);
    }
    auto* tree = QAccessible::queryAccessibleInterface(&bar);
    for (int index = 0; index < bar.count(); ++index) {
        EXPECT_EQ(tree->child(index)->role(), QAccessible::PageTab);
        EXPECT_EQ(tree->child(index)->text(QAccessible::Name),
                  toQString(index == 0 ? "Allgemein" : "Über"));
    }
    press(Qt::Key_Escape);
    EXPECT_FALSE(view.isVisible());
}

TEST_F(SettingsTest, TheStripHasTheColoursOfTheThemeAndNothingElseIsDrawn) {
    open();
    for (const AppearanceMode mode : {AppearanceMode::light, AppearanceMode::dark}) {
        theme.setMode(mode);
        turn();
        const QImage picture = view.grab().toImage();
        const ThemeColours& colours = theme.colours();
        const struct {
            const char* what;
            int x, y;
            QColor colour;
        } points[] = {
            {"beside the chosen tab", 161, 32, colours.window},
            {"in the chosen tab", 166, 32, blended(colours.activeRow, colours.window)},
            {"in the other tab", 246, 32, colours.window},
            {"the line below", 0, 63, blended(colours.separator, colours.window)},
            {"left edge of the page", 0, 200, colours.window},
            {"lower right corner", 479, 439, colours.window},
        };
        for (const auto& point : points)
            EXPECT_TRUE(isLike(picture.pixelColor(point.x, point.y), point.colour))
                << point.what << (theme.isDark() ? ", dark" : ", light");
    }
}

TEST_F(SettingsTest, EveryLinkOpensItsAddressAndIsCalledWhatItShows) {
    const struct {
        const char* widget;
        const char* name;
        std::string address;
    } links[] = {
        {"appsCard", "Weitere Apps von Mirefold Software", ""},
        {"termsLinkRow", "AGB / Nutzungsbedingungen", "/agb"},
        {"privacyLinkRow", "Datenschutz", "/datenschutz"},
        {"legalNoticeLinkRow", "Impressum", "/impressum"},
        {"withdrawalLinkRow", "Widerrufsbelehrung", "/widerruf"},
        {"helpLinkRow", "Hilfe & Support", "/help"},
        {"contactLinkButton", "hallo@mirefold.example", "mailto:hallo@mirefold.example"},
    };
    for (const auto& link : links) {
        auto& button = find<QAbstractButton>(view, link.widget);
        auto* tree = QAccessible::queryAccessibleInterface(&button);
        EXPECT_EQ(tree->role(), QAccessible::Button) << link.widget;
        EXPECT_EQ(tree->text(QAccessible::Name).toStdString(), link.name);
        workspace.calls.clear();
        button.click();
        setenv("VERIDANE_SITE", "http://localhost:8080/", 1);
        button.click();
        unsetenv("VERIDANE_SITE");
        const bool isPage = !link.address.starts_with("mailto:");
        EXPECT_EQ(workspace.calls, (Texts{(isPage ? "https://mirefold.example" : "") + link.address,
                                          (isPage ? "http://localhost:8080" : "") + link.address}));
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

TEST_F(SettingsTest, BothPagesFollowTheLanguageWhileTheyAreOpen) {
    open();
    chooseLanguage(1);
    InterfaceLanguage language;
    language.apply(AppLanguage::english);
    turn();
    EXPECT_EQ(view.windowTitle(), QStringLiteral("Settings"));
    EXPECT_EQ(tabs.tabText(0) + tabs.tabText(1), QStringLiteral("GeneralAbout"));
    EXPECT_EQ(shownTexts(),
              (Texts{"Appearance", "Appearance Mode", "Follow System", "Light", "Dark",
                     "Automatically follows the light or dark setting of macOS.", "Language",
                     "Language", "Restart the app to complete the change.", "Restart Now"}));
    tabs.setCurrentIndex(1);
    EXPECT_EQ(shownTexts(),
              (Texts{"Veridane", "by Mirefold Software", "Version 1.0 (1)",
                     "More Apps from Mirefold Software", "More Apps from Mirefold Software",
                     "Small tools that know their place.", "Discover All Apps", "Legal",
                     "Terms and Conditions", "Privacy", "Legal Notice", "Right of Withdrawal",
                     "Help & Support", "hallo@mirefold.example",
                     "© 2026 Mirefold Software. All rights reserved."}));
    EXPECT_EQ(find(view, "appsCard").accessibleDescription(),
              QStringLiteral("Small tools that know their place. Discover All Apps"));
    language.apply(AppLanguage::german);
    turn();
}

} // namespace
} // namespace veridane::test
