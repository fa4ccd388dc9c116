#include "ui/DetailView.h"

#include "coordination/ExternalAddresses.h"
#include "ui/InterfaceLanguage.h"
#include "ui/SelectableLabel.h"
#include "ui/WindowFixture.h"

#include <QHelpEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

namespace veridane::test {
namespace {

using namespace veridane::ui;

ScanItem fullItem() {
    ScanItem item = sampleItem("Pro", CompatibilityStatus::native);
    item.architecture = {{CPUArch::x86_64, CPUArch::arm64}, true};
    item.vendor = "Brindle & Cove";
    item.teamIdentifier = "B4R9D2CV7K";
    item.bundleIdentifier = "com.example.pro";
    item.version = "14.2.1";
    item.buildNumber = "14210";
    item.categoryDescription = "Grafik";
    item.sizeOnDisk = 1'280'000'000;
    item.lastModified = *parseISO8601("2026-02-19T12:00:00Z"); // the 20th where the suite runs
    item.intelComponents = {"Contents/Helper"};
    item.updateSource = UpdateSource::sparkle;
    item.sparkleFeedURL = "https://example.com/appcast.xml";
    return item;
}

class DetailViewTest : public WindowTest {
protected:
    void select(const ScanItem& item) {
        coordinator->setSelection(item.id);
        turn();
    }
    void showItem(const ScanItem& item) {
        show({item});
        select(item);
    }
    bool isShown(const QWidget& widget) { return widget.isVisibleTo(view.get()); }
    std::string text(const char* name) { return find<QLabel>(*view, name).text().toStdString(); }
    SelectableLabel& value(const char* field) {
        return find<SelectableLabel>(*view, (std::string(field) + "ValueLabel").c_str());
    }
    /// What a reader sees, from top to bottom: "title: value".
    Texts facts() {
        Texts texts;
        for (const auto* label : view->findChildren<SelectableLabel*>()) {
            const std::string name = label->objectName().toStdString();
            if (const auto at = name.find("ValueLabel"); at != name.npos && isShown(*label))
                texts.push_back(text((name.substr(0, at) + "TitleLabel").c_str()) + ": " +
                                label->text().toStdString());
        }
        return texts;
    }
    /// As the Tab key reaches them.
    Texts buttons() {
        Texts texts;
        for (auto* next = view->nextInFocusChain(); next != view.get();
             next = next->nextInFocusChain())
            if (const auto* button = qobject_cast<QPushButton*>(next); button && isShown(*button))
                texts.push_back(button->text().toStdString());
        return texts;
    }
    Texts components() {
        Texts texts;
        for (const auto* label :
             view->findChildren<SelectableLabel*>(QStringLiteral("componentLabel")))
            if (isShown(*label))
                texts.push_back(label->text().toStdString());
        return texts;
    }
    void open(int width, int height) {
        view->resize(width, height);
        view->show();
        turn();
    }

    std::unique_ptr<DetailView> view = std::make_unique<DetailView>(*coordinator, workspace, theme);
};

TEST_F(DetailViewTest, FactsAndButtonsAreThoseOfTheItem) {
    ScanItem store = sampleItem("App", CompatibilityStatus::needsRosetta);
    store.architecture = {{CPUArch::x86_64, CPUArch::i386}, true};
    store.version = "2.0";
    store.updateSource = UpdateSource::macAppStore;
    ScanItem twin = store;
    twin.architecture = {{CPUArch::x86_64}, true};
    twin.version.reset();
    twin.buildNumber = "7";
    twin.updateSource = UpdateSource::unsigned_;
    const ScanItem native = sampleItem("App", CompatibilityStatus::native);
    const struct {
        const char* what;
        std::vector<ScanItem> items; // of which the first is shown
        Texts facts, buttons;
    } cases[] = {
        {"everything is known",
         {fullItem()},
         {"Architektur: x86_64 + arm64  (Universal)", "Hersteller: Brindle & Cove",
          "Team-ID: B4R9D2CV7K", "Bundle-ID: com.example.pro", "Version: 14.2.1 (14210)",
          "Kategorie / Nutzung: Grafik", "Größe: 1,28\u00A0GB", "Geändert: 20.02.2026",
          "Pfad: /Applications/Pro.app", "Quelle: Sparkle (Auto-Update)",
          "Appcast: https://example.com/appcast.xml"},
         {"Prüfen", "Nach nativer Version suchen", "Im App Store suchen", "Im Finder zeigen",
          "Rosetta 2 installieren?"}},
        {"from the store, two slices that are both Intel",
         {store},
         {"Architektur: x86_64 + i386  (Universal)", "Hersteller: unbekannt", "Version: 2.0",
          "Größe: —", "Pfad: /Applications/App.app", "Quelle: Mac App Store"},
         {"Prüfen", "Nach nativer Version suchen", "Im App Store suchen", "Im Finder zeigen",
          "Rosetta 2 installieren?"}},
        {"a native twin is installed",
         {twin, native},
         {"Architektur: x86_64", "Hersteller: unbekannt", "Größe: —", "Pfad: /Applications/App.app",
          "Quelle: Nicht signiert"},
         {"Nach nativer Version suchen", "Im App Store suchen", "Im Finder zeigen"}},
        {"native",
         {native},
         {"Architektur: —", "Hersteller: unbekannt", "Größe: —", "Pfad: /Applications/App.app",
          "Quelle: Unbekannt"},
         {"Im Finder zeigen"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        show(c.items);
        select(c.items.front());
        EXPECT_EQ(facts(), c.facts);
        EXPECT_EQ(buttons(), c.buttons);
        EXPECT_EQ(text("updateStatusLabel"), "—");
    }
}

TEST_F(DetailViewTest, TheFirstFortyComponentsAreNamed) {
    const std::pair<std::size_t, const char*> cases[] = {
        {41, "… und 1 weitere"}, {2, ""}, {40, ""}, {0, ""}};
    for (const auto& [count, further] : cases) {
        SCOPED_TRACE(count);
        ScanItem item = sampleItem("App", CompatibilityStatus::incompatible);
        Texts named;
        for (std::size_t i = 0; i < count; ++i) {
            item.intelComponents.push_back("Contents/\x1b[" + std::to_string(i));
            if (i < 40)
                named.push_back("Contents/\uFFFD[" + std::to_string(i));
        }
        showItem(item);
        EXPECT_EQ(isShown(find(*view, "componentBox")), count > 0);
        EXPECT_EQ(components(), named);
        EXPECT_EQ(isShown(find(*view, "furtherComponentsLabel")) ? text("furtherComponentsLabel")
                                                                 : "",
                  further);
        EXPECT_EQ(text("componentsTitleLabel"),
                  "Eingebettete Intel-Komponenten (" + std::to_string(count) + ")");
    }
}

TEST_F(DetailViewTest, ButtonsAskForWhatTheySayAboutTheShownItem) {
    const ScanItem item = fullItem();
    showItem(item);
    const QSignalSpy guide(view.get(), &DetailView::rosettaGuideRequested);
    for (auto* button : view->findChildren<QPushButton*>())
        button->click();
    EXPECT_EQ(workspace.calls,
              (Texts{ExternalAddresses::nativeVersionSearch(item),
                     ExternalAddresses::appStoreSearch(item), "reveal /Applications/Pro.app"}));
    EXPECT_EQ(guide.count(), 1);
    EXPECT_EQ(checks.size(), 1);
}

TEST_F(DetailViewTest, TheStatusFollowsItsCheckWhichCanBeAskedForAgain) {
    showItem(fullItem());
    auto& button = find<QPushButton>(*view, "checkUpdateButton");
    button.click();
    turn();
    EXPECT_EQ(text("updateStatusLabel"), "Prüfe …");
    button.click();
    EXPECT_EQ(checks.size(), 2);
    checks.front()(UpdateCheckResult::failed("no\nanswer"));
    queue.drain();
    turn();
    EXPECT_EQ(text("updateStatusLabel"), "Fehler: no\uFFFDanswer");
}

TEST_F(DetailViewTest, AnUpdateLeavesScrollingAndSelectionAloneAndAnotherItemDoesNot) {
    const ScanItem item = fullItem();
    ScanItem other = fullItem();
    other.id = Uuid::random();
    other.path = "/Applications/Other.app";
    show({item, other});
    select(item);
    open(360, 300);
    auto& bar = *find<QScrollArea>(*view, "detailScrollArea").verticalScrollBar();
    bar.setValue(150);
    value("path").setSelection(1, 12);
    coordinator->checkUpdate(item.id);
    turn();
    EXPECT_EQ(bar.value(), 150);
    EXPECT_EQ(value("path").selectedText(), QStringLiteral("Applications"));
    select(other);
    EXPECT_EQ(bar.value(), 0);
    EXPECT_FALSE(value("path").hasSelectedText());
}

TEST_F(DetailViewTest, NothingWidensTheColumn) {
    ScanItem item = fullItem();
    const std::string endless(300, 'W');
    item.name = item.vendor.emplace(endless);
    item.path = "/" + endless;
    item.sparkleFeedURL = item.intelComponents.front() = endless;
    showItem(item);
    coordinator->checkUpdate(item.id);
    checks.front()(UpdateCheckResult::failed(endless));
    queue.drain();
    const auto& first = find(*view, "searchNativeButton");
    const auto& second = find(*view, "searchAppStoreButton");
    const auto& area = find<QScrollArea>(*view, "detailScrollArea");
    for (const int width : {300, 360, 600}) {
        SCOPED_TRACE(width);
        open(width, 400);
        const int room = area.viewport()->width();
        EXPECT_EQ(area.widget()->width(), room);
        for (const auto* label : view->findChildren<QLabel*>()) {
            if (!isShown(*label))
                continue;
            const QPoint end = label->mapTo(view.get(), QPoint(label->width(), 0));
            EXPECT_LE(end.x(), room - 16) << label->objectName().toStdString();
            EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                << label->objectName().toStdString();
        }
        EXPECT_EQ(first.y() == second.y(), width == 600) << "side by side only where they fit";
        EXPECT_EQ(second.geometry().right(), room - 2 * 16 - 1);
    }
    // What is shown whole needs no help tag.
    auto& advice = find(*view, "adviceLabel");
    QHelpEvent help(QEvent::ToolTip, {1, 1}, advice.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&advice, &help);
    EXPECT_FALSE(QToolTip::isVisible());
}

TEST_F(DetailViewTest, LanguageAndDatesChangeWhileShown) {
    showItem(fullItem());
    InterfaceLanguage language;
    language.apply(AppLanguage::english);
    turn();
    const Texts shown = facts();
    EXPECT_EQ(shown.at(5), "Category / Use: Grafik");
    EXPECT_EQ(shown.at(6), "Size: 1.28 GB");
    EXPECT_EQ(shown.at(7), "Modified: Feb 20, 2026");
    EXPECT_EQ(buttons().at(4), "Install Rosetta 2?");
    language.apply(AppLanguage::german);
    turn();
}

} // namespace
} // namespace veridane::test
