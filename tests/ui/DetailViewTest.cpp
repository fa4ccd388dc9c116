#include "ui/DetailView.h"

#include "coordination/ExternalAddresses.h"
#include "ui/SelectableLabel.h"
#include "ui/WindowFixture.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>

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
    void open(int width, int height) {
        view->resize(width, height);
        view->show();
        turn();
    }

    std::unique_ptr<DetailView> view = std::make_unique<DetailView>(*coordinator, workspace, theme);
};

TEST_F(DetailViewTest, FactsAndButtonsAreThoseOfTheItem) {
    ScanItem twin = sampleItem("App", CompatibilityStatus::needsRosetta);
    twin.architecture = {{CPUArch::x86_64, CPUArch::i386}, true};
    twin.version = "2.0";
    twin.updateSource = UpdateSource::macAppStore;
    ScanItem native = sampleItem("App", CompatibilityStatus::native);
    native.buildNumber = "7";
    const std::tuple<const char*, std::vector<ScanItem>, Texts, Texts> cases[] = {
        {"everything is known",
         {fullItem()},
         {"Architektur: x86_64 + arm64  (Universal)", "Hersteller: Brindle & Cove",
          "Team-ID: B4R9D2CV7K", "Bundle-ID: com.example.pro", "Version: 14.2.1 (14210)",
          "Kategorie / Nutzung: Grafik", "Größe: 1,28\u00A0GB", "Geändert: 20.02.2026",
          "Pfad: /Applications/Pro.app", "Quelle: Sparkle (Auto-Update)",
          "Appcast: https://example.com/appcast.xml"},
         {"Prüfen", "Nach nativer Version suchen", "Im App Store suchen", "Im Finder zeigen",
          "Rosetta 2 installieren?"}},
        {"from the store, and a native twin is installed",
         {twin, native},
         {"Architektur: x86_64 + i386  (Universal)", "Hersteller: unbekannt", "Version: 2.0",
          "Größe: —", "Pfad: /Applications/App.app", "Quelle: Mac App Store"},
         {"Prüfen", "Nach nativer Version suchen", "Im App Store suchen", "Im Finder zeigen"}},
        {"native",
         {native},
         {"Architektur: —", "Hersteller: unbekannt", "Größe: —", "Pfad: /Applications/App.app",
          "Quelle: Unbekannt"},
         {"Im Finder zeigen"}},
    };
    for (const auto& [what, items, expectedFacts, expectedButtons] : cases) {
        SCOPED_TRACE(what);
        show(items);
        select(items.front());
        EXPECT_EQ(facts(), expectedFacts);
        EXPECT_EQ(buttons(), expectedButtons);
        EXPECT_EQ(text("updateStatusLabel"), "—");
    }
}

TEST_F(DetailViewTest, TheFirstFortyComponentsAreNamed) {
    const std::pair<int, const char*> cases[] = {
        {41, "… und 1 weitere"}, {2, ""}, {40, ""}, {0, ""}};
    for (const auto& [count, further] : cases) {
        SCOPED_TRACE(count);
        ScanItem item = sampleItem("App", CompatibilityStatus::incompatible);
        for (int i = 0; i < count; ++i)
            item.intelComponents.push_back("Contents/\x1b[" + std::to_string(i));
        showItem(item);
        int named = 0;
        for (const auto* label : view->findChildren<QLabel*>(QStringLiteral("componentLabel"))) {
            if (isShown(*label)) {
                EXPECT_EQ(label->text().toStdString(),
                          "Contents/\uFFFD[" + std::to_string(named++));
            }
        }
        EXPECT_EQ(named, std::min(count, 40));
        EXPECT_EQ(isShown(find(*view, "componentBox")), count > 0);
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
    turn();
    EXPECT_EQ(text("updateStatusLabel"), "Prüfe …");
    find<QPushButton>(*view, "checkUpdateButton").click();
    ASSERT_EQ(checks.size(), 2) << "it can be asked for again";
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
    auto& path = find<SelectableLabel>(*view, "pathValueLabel");
    path.setSelection(1, 12);
    coordinator->checkUpdate(item.id);
    turn();
    EXPECT_EQ(bar.value(), 150);
    EXPECT_EQ(path.selectedText(), QStringLiteral("Applications"));
    select(other);
    EXPECT_EQ(bar.value(), 0);
    EXPECT_FALSE(path.hasSelectedText());
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
}

} // namespace
} // namespace veridane::test
