#include "ui/DisclosureButton.h"
#include "ui/SidebarRow.h"
#include "ui/SidebarView.h"
#include "ui/WindowFixture.h"

namespace veridane::test {
namespace {

using namespace veridane::ui;

class SidebarTest : public WindowTest {
protected:
    SidebarTest() {
        show({sampleItem("Alpha", CompatibilityStatus::needsRosetta, ItemKind::application, "R&D"),
              sampleItem("Beta", CompatibilityStatus::native, ItemKind::application, "Zeta"),
              sampleItem("Gamma", CompatibilityStatus::native),
              sampleItem("tool", CompatibilityStatus::native, ItemKind::commandLineTool)});
        turn();
    }
    /// What a user sees from top to bottom, the active rows in brackets.
    Texts shown() {
        Texts texts;
        for (const QWidget* widget : find(*view, "sidebarList").findChildren<QWidget*>()) {
            if (!widget->isVisibleTo(view.get()))
                continue;
            if (const auto* row = qobject_cast<const SidebarRow*>(widget)) {
                const std::string text =
                    row->title().toStdString() + " " + row->accessibleDescription().toStdString();
                texts.push_back(row->isChecked() ? "[" + text + "]" : text);
            } else if (const auto* group = qobject_cast<const DisclosureButton*>(widget)) {
                texts.push_back(group->title().toStdString());
            }
        }
        return texts;
    }
    void press(const char* name) {
        find<QAbstractButton>(*view, name).click();
        turn();
    }

    std::unique_ptr<SidebarView> view = std::make_unique<SidebarView>(*coordinator, theme);
};

TEST_F(SidebarTest, RowsShowTheirCountsAndSetTheirFilters) {
    const Texts status = {
        "[Alle 4]",           "Handlungsbedarf 1", "Benötigt Rosetta 2 1", "Teilweise betroffen 0",
        "Native verfügbar 0", "Bereit 3",          "Kein Rosetta-Thema 0"};
    const auto with = [&](Texts more) {
        Texts all = status;
        all.insert(all.end(), more.begin(), more.end());
        return all;
    };
    EXPECT_EQ(shown(), with({"[Alle Arten 4]", "Programme 3", "Kommandozeilen-Tools 1"}));
    press("applicationSidebarRow");
    EXPECT_EQ(shown(), with({"Alle Arten 4", "[Programme 3]", "Kommandozeilen-Tools 1",
                             "Hersteller", "[Alle Hersteller 3]", "R&D 1", "Zeta 1"}));
    press("vendorSidebarRow");
    EXPECT_EQ(coordinator->vendorFilter().get(), "R&D") << "the & is no mark of a mnemonic";
    press("vendorsDisclosureButton");
    EXPECT_EQ(shown().back(), "Hersteller");
    EXPECT_EQ(coordinator->vendorFilter().get(), "R&D") << "a closed group keeps its filter";
    press("applicationSidebarRow"); // the second press on the active kind
    EXPECT_EQ(shown(), with({"[Alle Arten 4]", "Programme 3", "Kommandozeilen-Tools 1"}));
    EXPECT_EQ(coordinator->vendorFilter().get(), std::nullopt);
}

TEST_F(SidebarTest, OnlyAChangeOfTheStatusIsLoggedButEveryPressOfAKind) {
    press("statusreadySidebarRow");
    press("statusreadySidebarRow");
    press("allKindsSidebarRow");
    coordinator->setStatusFilter(StatusFilter::all); // as a tile does
    turn();
    EXPECT_TRUE(find<SidebarRow>(*view, "statusallSidebarRow").isChecked());
    EXPECT_FALSE(find<SidebarRow>(*view, "statusreadySidebarRow").isChecked());
    view.reset();
    const std::string lines = log();
    EXPECT_EQ(occurrences(lines, "event=status_filter_changed"), 1);
    EXPECT_EQ(occurrences(lines, "event=kind_filter_changed"), 1);
}

} // namespace
} // namespace veridane::test
