// Renders the windows in all their states to pictures, without a display.

#include "coordination/ScanCoordinator.h"
#include "platform/DrainedQueue.h"
#include "platform/Language.h"
#include "sample/SampleVolume.h"
#include "scan/SystemScanner.h"
#include "support/QuietServices.h"
#include "support/VolumeBuilder.h"
#include "ui/ApplicationLook.h"
#include "ui/ContentView.h"
#include "ui/InterfaceLanguage.h"
#include "ui/Metrics.h"
#include "ui/Preferences.h"
#include "ui/RosettaInstallGuide.h"
#include "ui/SettingsView.h"
#include "ui/Sheet.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/WelcomeView.h"

#include <QApplication>
#include <QDir>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>

#include <cstdio>
#include <functional>
#include <latch>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace veridane;
using namespace veridane::ui;

/// The machine that the sample is the disk of.
class SampleMachine : public SystemQueries {
public:
    explicit SampleMachine(bool hasAccess) : m_hasAccess(hasAccess) {}

private:
    std::optional<std::int32_t> arm64Capability() const override { return 1; }
    bool exists(const Path&) const override { return true; }
    bool isReadable(const Path&) const override { return m_hasAccess; }
    std::string osVersion() const override { return "Version 26.4 (Build 25E214)"; }

    bool m_hasAccess;
};

/// One update check in each of its outcomes, in turn.
UpdateCheckResult outcome(std::size_t number) {
    switch (number % 5) {
    case 0:
        return UpdateCheckResult::updateAvailable("10.0.1");
    case 1:
        return UpdateCheckResult::upToDate("6.3.1");
    case 2:
        return UpdateCheckResult::checking();
    case 3:
        return UpdateCheckResult::failed("HTTP 404");
    default:
        return UpdateCheckResult::noFeed();
    }
}

/// The window over the sample Mac, in a state of the picture's choice.
class Stage {
public:
    Stage(AppearanceMode mode, AppLanguage language, bool hasAccess)
        : m_machine(hasAccess), m_look(m_theme),
          m_preferences(QDir::tempPath() + QStringLiteral("/no-such-folder/none")) {
        m_theme.setMode(mode);
        m_language.apply(language);
        QCoreApplication::processEvents();
        sample::writeSampleVolume(m_volume);
    }

    ScanCoordinator& coordinator() { return m_coordinator; }

    void scan() {
        m_coordinator.startScan();
        m_queue.drainUntil([this] { return !m_coordinator.isScanning().get(); });
    }
    /// A scan that has come some way and goes no further.
    void scanHalfway() {
        m_isHeld = true;
        m_coordinator.startScan();
        m_queue.drainUntil([this] {
            const auto& progress = m_coordinator.progress().get();
            return progress && progress->total > 0;
        });
    }
    void checkUpdates() {
        m_coordinator.checkAllUpdates();
        m_queue.drain();
    }
    void keepOnlyReady() { m_keepsOnlyReady = true; }

    void selectFirst(Urgency urgency) {
        for (const ScanItem* item : m_coordinator.filteredItems()) {
            if (m_coordinator.recommendation(*item).urgency == urgency)
                return m_coordinator.setSelection(item->id);
        }
    }

    void save(const QString& file, QSize size = {metrics::windowWidth, metrics::windowHeight}) {
        ContentView window(contentServices(), {});
        window.resize(size);
        grab(window, file);
    }
    void saveWelcome(const QString& file, PathStatus path, bool isScrolled = false) {
        ContentView window(contentServices(), {});
        window.resize(metrics::windowWidth, metrics::windowHeight);
        auto* welcome = makeWelcome(path);
        const Sheet sheet(m_theme, welcome, window);
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.show();
        m_queue.drain(); // the list has come
        QCoreApplication::sendPostedEvents();
        settle();
        if (isScrolled)
            scrollToEnd(*welcome);
        grab(window, file);
    }
    void saveGuide(const QString& file) {
        ContentView window(contentServices(), {});
        window.resize(metrics::windowWidth, metrics::windowHeight);
        const Sheet sheet(m_theme, new RosettaInstallGuide(m_workspace, m_theme), window);
        grab(window, file);
    }
    void saveSettings(const QString& file, int tab) {
        SettingsView window(m_preferences, m_workspace, m_relauncher, m_theme);
        window.findChild<QTabWidget*>()->setCurrentIndex(tab);
        grab(window, file);
    }

private:
    ContentServices contentServices() {
        return {.coordinator = m_coordinator,
                .workspace = m_workspace,
                .preferences = m_preferences,
                .savePanel = m_savePanel,
                .theme = m_theme};
    }
    WelcomeView* makeWelcome(PathStatus path) {
        return new WelcomeView({.client = m_network,
                                .queue = m_queue,
                                .workspace = m_workspace,
                                .watcher = std::make_unique<test::SteadyPath>(path)},
                               m_theme);
    }
    static void scrollToEnd(QWidget& view) {
        QScrollBar& bar = *view.findChild<QScrollArea*>()->verticalScrollBar();
        bar.setValue(bar.maximum());
    }
    /// All layouts are done, also those that others ask for.
    static void settle() {
        for (int round = 0; round < 4; ++round)
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
    static void grab(QWidget& window, const QString& file) {
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.show(); // its start task stays in the queue
        settle();
        if (!window.grab().save(file))
            std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
    }
    std::vector<ScanItem> run(const ScanOptions& options,
                              const std::function<void(const ScanProgress&)>& onProgress,
                              const std::stop_token& stop) {
        if (m_isHeld) {
            onProgress(
                {.phase = localized("Analysiere Programme …"), .completed = 185, .total = 412});
            std::latch stopped(1);
            const std::stop_callback onStop(stop, [&] { stopped.count_down(); });
            stopped.wait();
            return {};
        }
        auto items =
            SystemScanner::scan(m_files, SearchLocations(SearchLocations::homesOnVolume(m_files)),
                                options, onProgress, stop);
        if (m_keepsOnlyReady)
            std::erase_if(items, [](const ScanItem& item) {
                return item.status != CompatibilityStatus::native || !item.intelComponents.empty();
            });
        return items;
    }

    test::VolumeBuilder m_volume;
    FileSystem m_files = m_volume.files();
    SampleMachine m_machine;
    test::QuietWorkspace m_workspace;
    test::QuietSavePanel m_savePanel;
    test::QuietRelauncher m_relauncher;
    test::UnreachableNetwork m_network;
    Theme m_theme;
    ApplicationLook m_look;
    InterfaceLanguage m_language;
    Preferences m_preferences;
    DrainedQueue m_queue;
    bool m_isHeld = false;
    bool m_keepsOnlyReady = false;
    std::size_t m_checks = 0;
    ScanCoordinator m_coordinator{
        {.mainQueue = m_queue,
         .workspace = m_workspace,
         .system = m_machine,
         .scan = [this](const auto& options, const auto& onProgress,
                        const auto& stop) { return run(options, onProgress, stop); },
         .checkUpdate = [this](const ScanItem&, auto onResult) { onResult(outcome(m_checks++)); },
         .clock =
             [] {
                 return *parseISO8601("2026-03-14T08:41:00Z");
             }},
        std::make_unique<ScanCacheStore>(std::nullopt),
        std::nullopt};
};

constexpr bool noAccess = false;

struct State {
    const char* name;
    std::function<void(Stage&, const QString& file)> render;
    bool hasAccess = true; // to the whole disk
};

void renderResult(Stage& stage, const QString& file, const std::function<void()>& choose) {
    stage.scan();
    stage.checkUpdates();
    choose();
    stage.save(file);
}

void chooseApplications(Stage& stage) {
    stage.coordinator().setKindFilter(ItemKind::application);
    stage.selectFirst(Urgency::partiallyAffected);
}

const State states[] = {
    {"first-start", [](Stage& stage, const QString& file) { stage.save(file); }, noAccess},
    {"scanning",
     [](Stage& stage, const QString& file) {
         stage.scan();
         stage.checkUpdates();
         stage.scanHalfway();
         stage.save(file);
     }},
    {"all",
     [](Stage& stage, const QString& file) {
         renderResult(stage, file, [&] { stage.selectFirst(Urgency::breaksOnMacOS28); });
     }},
    {"applications",
     [](Stage& stage, const QString& file) {
         renderResult(stage, file, [&] { chooseApplications(stage); });
     }},
    {"attention",
     [](Stage& stage, const QString& file) {
         renderResult(stage, file,
                      [&] { stage.coordinator().setStatusFilter(StatusFilter::needsAttention); });
     }},
    {"nothing-found",
     [](Stage& stage, const QString& file) {
         renderResult(stage, file, [&] { stage.coordinator().setSearchText("xyzzy"); });
     }},
    {"ready",
     [](Stage& stage, const QString& file) {
         stage.keepOnlyReady();
         renderResult(stage, file, [&] { stage.selectFirst(Urgency::ready); });
     }},
    {"demo-items",
     [](Stage& stage, const QString& file) {
         const std::string arguments[] = {"UITEST_SEED_DATA"};
         stage.coordinator().applyUITestSeed(arguments);
         stage.selectFirst(Urgency::breaksOnMacOS28);
         stage.save(file);
     }},
    {"smallest",
     [](Stage& stage, const QString& file) {
         stage.scan();
         stage.checkUpdates();
         chooseApplications(stage);
         stage.save(file, {metrics::windowMinimumWidth, metrics::windowMinimumHeight});
     }},
    {"welcome",
     [](Stage& stage, const QString& file) {
         stage.scanHalfway();
         stage.saveWelcome(file, PathStatus::satisfied);
     },
     noAccess},
    {"welcome-offline",
     [](Stage& stage, const QString& file) {
         stage.scanHalfway();
         stage.saveWelcome(file, PathStatus::unsatisfied);
     }},
    {"welcome-end",
     [](Stage& stage, const QString& file) {
         stage.scanHalfway();
         stage.saveWelcome(file, PathStatus::satisfied, true);
     }},
    {"guide",
     [](Stage& stage, const QString& file) {
         stage.scan();
         stage.checkUpdates();
         chooseApplications(stage);
         stage.saveGuide(file);
     }},
    {"settings",
     [](Stage& stage, const QString& file) {
         stage.saveSettings(file, 0);
     }},
    {"settings-about",
     [](Stage& stage, const QString& file) {
         stage.saveSettings(file, 1);
     }},
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
