#include "ui/ReportExport.h"

#include "coordination/CoordinatorFixture.h"

#include <functional>
#include <optional>
#include <utility>

namespace veridane::ui {
namespace {

using test::textOf;

/// Answers for the user.
class AnsweringPanel : public SavePanel {
public:
    [[nodiscard]] std::optional<std::string> chooseFile(const std::string& proposedName) override {
        proposed.push_back(proposedName);
        whileOpen();
        return answer;
    }

    test::Texts proposed;
    std::optional<std::string> answer;
    std::function<void()> whileOpen = [] {
    };
};

class ReportExportTest : public test::CoordinatorTest {
protected:
    AnsweringPanel panel;
};

TEST_F(ReportExportTest, EachReportHasAllItemsOfTheMomentWhateverTheFilterShows) {
    const std::pair<void (*)(const ScanCoordinator&, SavePanel&), const char*> reports[] = {
        {ReportExport::exportCSV, "rosetta-bericht.csv"},
        {ReportExport::exportJSON, "rosetta-bericht.json"},
        {ReportExport::exportMarkdown, "rosetta-bericht.md"},
    };
    coordinator->setSearchText("first");
    panel.answer = volume.hostPath("/report");
    panel.whileOpen = [this] {
        show({});
    };
    for (const auto& [exportReport, name] : reports) {
        volume.file("/report", std::string(100'000, '#')); // longer than any of them
        show({test::sampleItem("First", CompatibilityStatus::needsRosetta),
              test::sampleItem("Second", CompatibilityStatus::needsRosetta)});
        exportReport(*coordinator, panel);
        const std::string text = textOf(*panel.answer);
        EXPECT_EQ(panel.proposed.back(), name);
        for (const char* item : {"First", "Second"})
            EXPECT_NE(text.find(item), std::string::npos) << text;
        EXPECT_EQ(text.find("####"), std::string::npos) << "nothing of the old file";
    }
}

TEST_F(ReportExportTest, ACancelledPanelAndAPlaceThatTakesNoFileLeaveNoTrace) {
    volume.fifo("/pipe").folder("/folder");
    for (const std::optional<std::string>& answer : {std::optional<std::string>(),
                                                     {volume.hostPath("/gone/report")},
                                                     {volume.hostPath("/pipe")},
                                                     {volume.hostPath("/folder")}}) {
        panel.answer = answer;
        ReportExport::saveText("text", "name", panel);
    }
    EXPECT_EQ(panel.proposed.size(), 4U);
    EXPECT_EQ(volume.files().list(Path())->size(), 2U);
}

} // namespace
} // namespace veridane::ui
