// Renders the windows in all their states to pictures, without a display.

#include "Stage.h"
#include "ui/Text.h"

#include <QApplication>
#include <QDir>

#include <cstdio>
#include <string>

namespace {

using namespace veridane;
using namespace veridane::ui;
using namespace veridane::screenshots;

constexpr QSize tall(metrics::windowWidth, 1300); // for all of the details

void chooseApplications(Stage& stage) {
    stage.mac().scan();
    stage.coordinator().setKindFilter(ItemKind::application);
    stage.mac().selectFirst(Urgency::partiallyAffected);
}

void firstStart(Stage& stage, const QString& file) {
    stage.save(file);
}
void scanning(Stage& stage, const QString& file) {
    stage.mac().scan();
    stage.mac().scanHalfway();
    stage.save(file);
}
void all(Stage& stage, const QString& file) {
    stage.mac().scan();
    stage.mac().selectFirst(Urgency::breaksOnMacOS28);
    stage.save(file);
}
void applications(Stage& stage, const QString& file) {
    chooseApplications(stage);
    stage.save(file);
}
void details(Stage& stage, const QString& file) {
    chooseApplications(stage);
    stage.save(file, tall);
}
void attention(Stage& stage, const QString& file) {
    stage.mac().scan();
    stage.coordinator().setStatusFilter(StatusFilter::needsAttention);
    stage.save(file);
}
void nothingFound(Stage& stage, const QString& file) {
    stage.mac().scan();
    stage.coordinator().setSearchText("xyzzy");
    stage.save(file);
}
void ready(Stage& stage, const QString& file) {
    stage.mac().keepOnlyReady();
    stage.mac().scan();
    stage.mac().selectFirst(Urgency::ready);
    stage.save(file);
}
void demoItems(Stage& stage, const QString& file) {
    const std::string arguments[] = {"UITEST_SEED_DATA"};
    stage.coordinator().applyUITestSeed(arguments);
    stage.mac().selectFirst(Urgency::breaksOnMacOS28);
    stage.save(file);
}
void smallest(Stage& stage, const QString& file) {
    chooseApplications(stage);
    stage.save(file, {metrics::windowMinimumWidth, metrics::windowMinimumHeight});
}
void welcome(Stage& stage, const QString& file) {
    stage.mac().scanHalfway();
    stage.saveWelcome(file, PathStatus::satisfied);
}
void welcomeEnd(Stage& stage, const QString& file) {
    stage.mac().scanHalfway();
    stage.saveWelcome(file, PathStatus::satisfied, Scrolled::toEnd);
}
void welcomeOffline(Stage& stage, const QString& file) {
    stage.mac().scanHalfway();
    stage.saveWelcome(file, PathStatus::unsatisfied);
}
void guide(Stage& stage, const QString& file) {
    chooseApplications(stage);
    stage.saveGuide(file);
}
void settings(Stage& stage, const QString& file) {
    stage.saveSettings(file, SettingsTab::general);
}
void settingsRestart(Stage& stage, const QString& file) {
    stage.saveSettingsWithHint(file);
}
void settingsAbout(Stage& stage, const QString& file) {
    stage.saveSettings(file, SettingsTab::about);
}
void settingsAboutEnd(Stage& stage, const QString& file) {
    stage.saveSettings(file, SettingsTab::about, Scrolled::toEnd);
}

constexpr bool noAccess = false;

struct State {
    const char* name;
    void (*render)(Stage& stage, const QString& file);
    bool hasAccess = true; // to the whole disk
};

constexpr State states[] = {
    {"first-start", firstStart, noAccess},
    {"scanning", scanning},
    {"all", all},
    {"applications", applications},
    {"details", details},
    {"attention", attention},
    {"nothing-found", nothingFound},
    {"ready", ready},
    {"demo-items", demoItems},
    {"smallest", smallest},
    {"welcome", welcome, noAccess},
    {"welcome-end", welcomeEnd},
    {"welcome-offline", welcomeOffline},
    {"guide", guide},
    {"settings", settings},
    {"settings-restart", settingsRestart},
    {"settings-about", settingsAbout},
    {"settings-about-end", settingsAboutEnd},
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2 || !QDir().mkpath(arguments[1])) {
        std::fputs("usage: veridane-screenshots DIR [part of a name]\n", stderr);
        return 2;
    }
    const QString wanted = arguments.value(2);
    const QString scale = qApp->devicePixelRatio() > 1 ? QStringLiteral("@2x") : QString();
    for (const AppearanceMode mode : {AppearanceMode::light, AppearanceMode::dark}) {
        for (const AppLanguage language : {AppLanguage::german, AppLanguage::english}) {
            for (const State& state : states) {
                const QString name = QStringLiteral("%1-%2-%3%4")
                                         .arg(toQString(state.name), toQString(rawString(language)),
                                              toQString(rawString(mode)), scale);
                if (!name.contains(wanted))
                    continue;
                Stage stage(mode, language, state.hasAccess);
                state.render(stage, QDir(arguments[1]).filePath(name + QStringLiteral(".png")));
            }
        }
    }
    return 0;
}
