#include "ui/Preferences.h"

#include "support/VolumeTest.h"
#include "ui/InterfaceLanguage.h"
#include "ui/Text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLocale>
#include <QWidget>

#include <cstdlib>

namespace veridane::ui {
namespace {

using test::textOf;
using namespace std::string_literals;

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
        first.setAppearanceMode(AppearanceMode::dark);
        first.setAppLanguage(AppLanguage::english);
        first.setLayout(QStringLiteral("columns"), QByteArray("\0\xFF,[", 4));
        EXPECT_NE(textOf(file).find("columns"), std::string::npos) << "for who starts meanwhile";
    }
    const Preferences second = preferences();
    EXPECT_EQ(second.appearanceMode(), AppearanceMode::dark);
    EXPECT_EQ(second.appLanguage(), AppLanguage::english);
    EXPECT_EQ(second.layout(QStringLiteral("columns")), QByteArray("\0\xFF,[", 4));
}

TEST_F(PreferencesTest, WhatCannotBeUnderstoodCountsAsTheSystemsAndStays) {
    for (const std::string& text : {"[General]\nappearanceMode=sepia\nappLanguage=klingon\n"s,
                                    "[General]\nappearanceMode=\nappLanguage=german, english\n"s,
                                    "no settings at all"s, "\0\xFF[[]=\n"s}) {
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

TEST_F(PreferencesTest, AStartWithNothingToWriteLeavesEvenWhatItWouldNotWriteItself) {
    const std::pair<AppLanguage, std::string> languages[] = {
        {AppLanguage::german, "[General]\nAppleLanguages=de\n; a note\n"},
        {AppLanguage::system, "; a note\n"},
    };
    for (const auto& [language, text] : languages) {
        store(text);
        preferences().applyLanguage(language);
        EXPECT_EQ(textOf(file), text);
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
    // Many choose texts and formats apart from each other.
    setenv("LC_ALL", "", 1);
    setenv("LC_MESSAGES", "en_US.UTF-8", 1);
    setenv("LC_TIME", "de_AT.UTF-8", 1);
    QWidget hidden, shown;
    Listener inHidden(&hidden), inShown(&shown);
    shown.show();
    InterfaceLanguage language;
    const std::tuple<AppLanguage, const char*, const char*> steps[] = {
        {AppLanguage::german, "de_DE", "Abbrechen"}, // as the toolkit says it
        {AppLanguage::english, "en_US", "Cancel"},
        {AppLanguage::system, "de_AT", "Cancel"},
    };
    int changes = 0;
    for (const auto& [choice, locale, cancel] : steps) {
        ++changes;
        for (int turn = 0; turn < 3; ++turn) {
            language.apply(choice);
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(inHidden.changes + inShown.changes, 2 * changes) << locale;
        EXPECT_EQ(QLocale().name().toStdString(), locale);
        EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel").toStdString(), cancel);
    }
    unsetenv("LC_MESSAGES");
    setLanguage(Language::german);
}

} // namespace
} // namespace veridane::ui
