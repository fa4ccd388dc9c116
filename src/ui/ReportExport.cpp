#include "ui/ReportExport.h"

#include "coordination/ScanCoordinator.h"
#include "platform/SystemCalls.h"
#include "reports/ReportExporter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string_view>

namespace veridane::ui::ReportExport {
namespace {

/// Not by way of a second file: that would not be the one that other programs have open, and the
/// folder may be closed to new ones.
void writePlainly(const std::string& path, std::string_view text) {
    constexpr mode_t newFileMode = 0666;
    const Descriptor file = openForWriting(path, O_CREAT | O_NONBLOCK, newFileMode);
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0)
        return;
    // A pipe or a device would keep the window waiting.
    if (!S_ISREG(status.st_mode) || ::ftruncate(file.get(), 0) != 0)
        return;
    while (!text.empty()) {
        const ssize_t written =
            uninterrupted([&] { return ::write(file.get(), text.data(), text.size()); });
        if (written <= 0)
            return;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

} // namespace

void exportCSV(const ScanCoordinator& coordinator, SavePanel& panel) {
    saveText(ReportExporter::csvReport(coordinator.items().get()), "rosetta-bericht.csv", panel);
}

void exportJSON(const ScanCoordinator& coordinator, SavePanel& panel) {
    if (const auto text = coordinator.exportJSON())
        saveText(*text, "rosetta-bericht.json", panel);
}

void exportMarkdown(const ScanCoordinator& coordinator, SavePanel& panel) {
    saveText(ReportExporter::markdownReport(coordinator.items().get()), "rosetta-bericht.md",
             panel);
}

void saveText(const std::string& text, const std::string& proposedName, SavePanel& panel) {
    if (const auto file = panel.chooseFile(proposedName))
        writePlainly(*file, text);
}

} // namespace veridane::ui::ReportExport
