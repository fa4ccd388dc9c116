#include "ui/ReportExport.h"

#include "ui/Bar.h"
#include "ui/WindowFixture.h"

#include <QAction>

namespace veridane::ui {
namespace {

using test::textOf;

using ReportExportTest = test::WindowTest;

TEST_F(ReportExportTest, EachReportHasAllItemsOfTheMomentWhateverTheFilterShows) {
    const Bar bar(*coordinator, savePanel, theme);
    const std::pair<const char*, const char*> reports[] = {
        {"exportCSVAction", "rosetta-bericht.csv"},
        {"exportJSONAction", "rosetta-bericht.json"},
        {"exportMarkdownAction", "rosetta-bericht.md"},
    };
    coordinator->setSearchText("first");
    savePanel.answer = volume.hostPath("/report");
    savePanel.whileOpen = [this] {
        show({});
    };
    for (const auto& [action, name] : reports) {
        volume.file("/report", std::string(100'000, '#')); // longer than any of them
        show({test::sampleItem("First", CompatibilityStatus::needsRosetta),
              test::sampleItem("Second", CompatibilityStatus::needsRosetta)});
        turn();
        find<QAction>(bar, action).trigger();
        const std::string text = textOf(*savePanel.answer);
        EXPECT_EQ(savePanel.proposedNames.back(), name);
        for (const char* item : {"First", "Second"})
            EXPECT_NE(text.find(item), std::string::npos) << text;
        EXPECT_EQ(text.find("####"), std::string::npos) << "nothing of the old file";
    }
}

TEST_F(ReportExportTest, ACancelledPanelAndAPlaceThatTakesNoFileLeaveNoTrace) {
    volume.fifo("/pipe").folder("/folder");
    ReportExport::saveText("text", "name", savePanel);
    for (const char* place : {"/gone/report", "/pipe", "/folder"}) {
        savePanel.answer = volume.hostPath(place);
        ReportExport::saveText("text", "name", savePanel);
    }
    EXPECT_EQ(savePanel.proposedNames.size(), 4U);
    EXPECT_EQ(volume.files().list(Path())->size(), 2U);
}

} // namespace
} // namespace veridane::ui
