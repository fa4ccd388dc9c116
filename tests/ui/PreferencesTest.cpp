#include "ui/Preferences.h"

#include "support/VolumeTest.h"
#include "ui/InterfaceLanguage.h"
#include "ui/Text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLocale>
#include <QWidget>

#include <array>
#include <cstdlib>

namespace veridane::ui {
namespace {

using test::textOf;

class PreferencesTest : public test::VolumeTest {
protected:
    std::string file = volume.hostPath("/Mirefold/Veridane.conf");

    Preferences preferences() const { return Preferences(toQString(file)); }
    void store(const std::string& text) { volume.file("/Mirefold/Veridane.conf", text); }
};

TEST_F(PreferencesTest, SurviveARestartAndAreTheSystemsUntilChosen) {
    {
        Preferences first = preferences();
        EXPECT_EQ(first.appearanceRaw().get() + first.languageRaw().get(), "systemsystem");
        int changes = 0;
        const Subscription told = first.appearanceRaw().observe([&] { ++changes; });
        first.setAppearanceMode(AppearanceMode::dark);
        first.setAppLanguage(AppLanguage::english);
        first.setLayout(QStringLiteral("columns"), QByteArray("\0\xFF,[", 4));
        EXPECT_EQ(changes, 1);
    }
    const Preferences second = preferences();
    EXPECT_EQ(second.appearanceMode(), AppearanceMode::dark);
    EXPECT_EQ(second.appLanguage(), AppLanguage::english);
    EXPECT_EQ(second.layout(QStringLiteral("columns")), QByteArray("\0\xFF,[", 4));
}

TEST_F(PreferencesTest, WhatCannotBeUnderstoodCountsAsTheSystemsAndStays) {
    const std::string texts[] = {
        "[General]\nappearanceMode=sepia\nappLanguage=klingon\n",
        "[General]\nappearanceMode=\nappLanguage=german, english\n",
        "no settings at all",
        std::string("\0\xFF[[]=\n", 7),
    };
    for (const std::string& text : texts) {
        store(text);
        {
            Preferences broken = preferences();
            EXPECT_EQ(broken.appearanceMode(), AppearanceMode::system) << text;
            EXPECT_EQ(broken.appLanguage(), AppLanguage::system) << text;
            broken.applyLanguage(broken.appLanguage());
        }
        EXPECT_EQ(textOf(file), text);
    }
    volume.file("/file", "").fifo("/pipe");
    for (const char* place : {"/file/Veridane.conf", "/pipe"}) {
        const QString unusable = toQString(volume.hostPath(place));
        Preferences(unusable).setAppearanceMode(AppearanceMode::light);
        Preferences again(unusable);
        EXPECT_EQ(again.appearanceMode(), AppearanceMode::system) << place;
        again.setAppearanceMode(AppearanceMode::dark);
        EXPECT_EQ(again.appearanceMode(), AppearanceMode::dark) << "for this run";
    }
}

TEST_F(PreferencesTest, TheLanguageOfTheNextStartStandsInTheFileUnlessTheSystemChooses) {
    const std::pair<AppLanguage, const char*> languages[] = {
        {AppLanguage::german, "AppleLanguages=de"},
        {AppLanguage::english, "AppleLanguages=en"},
        {AppLanguage::system, nullptr},
    };
    for (const auto& [language, line] : languages) {
        for (int start = 1; start <= 2; ++start) {
            preferences().applyLanguage(language);
            const std::string text = textOf(file);
            EXPECT_NE(text.find(line ? line : ""), std::string::npos) << text;
            EXPECT_EQ(text.find("AppleLanguages") != std::string::npos, line != nullptr) << text;
            // The next start has nothing to write, and so leaves even what it would write
            // otherwise.
            if (start == 1)
                store(text + "; a note\n");
            else
                EXPECT_NE(text.find("; a note"), std::string::npos) << text;
        }
    }
}

/// Counts how often it is told of another language.
class Listener : public QWidget {
public:
    using QWidget::QWidget;
    int changes = 0;

protected:
    void changeEvent(QEvent* event) override {
        changes += event->type() == QEvent::LanguageChange;
        QWidget::changeEvent(event);
    }
};

TEST(InterfaceLanguage, EveryWidgetIsToldOnceOfEachChange) {
    const auto turn = [] {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    };
    // Texts and formats are chosen apart from each other by many.
    for (const auto& [name, value] :
         {std::pair("LC_ALL", ""), {"LC_MESSAGES", "en_US.UTF-8"}, {"LC_TIME", "de_AT.UTF-8"}})
        setenv(name, value, 1);
    QWidget hidden, shown;
    Listener inHidden(&hidden), inShown(&shown);
    shown.show();
    turn();
    InterfaceLanguage language;
    const struct {
        AppLanguage choice;
        Language texts;
        const char* locale;
        const char* toolkit;
    } steps[] = {
        {AppLanguage::german, Language::german, "de_DE", "Abbrechen"},
        {AppLanguage::english, Language::english, "en_US", "Cancel"},
        {AppLanguage::system, Language::english, "de_AT", "Cancel"},
        {AppLanguage::german, Language::german, "de_DE", "Abbrechen"},
    };
    int changes = 0;
    for (const auto& step : steps) {
        for (int repeated = 0; repeated < 2; ++repeated) {
            language.apply(step.choice);
            turn();
        }
        ++changes;
        EXPECT_EQ(inHidden.changes, changes) << rawString(step.choice);
        EXPECT_EQ(inShown.changes, changes) << rawString(step.choice);
        EXPECT_EQ(veridane::language(), step.texts);
        EXPECT_EQ(QLocale().name().toStdString(), step.locale);
        EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel").toStdString(),
                  step.toolkit);
    }
    unsetenv("LC_MESSAGES");
    setLanguage(Language::german);
}

} // namespace
} // namespace veridane::ui
