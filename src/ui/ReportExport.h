#pragma once

#include "ui/SavePanel.h"

#include <string>

namespace veridane {
class ScanCoordinator;
}

/// The ways from the export menu to a file. A report covers all items as they are when its entry is
/// picked, whatever the filters say. A cancelled panel and a failed write leave no trace.
namespace veridane::ui::ReportExport {

void exportCSV(const ScanCoordinator& coordinator, SavePanel& panel);
/// Without a panel if the report cannot be made.
void exportJSON(const ScanCoordinator& coordinator, SavePanel& panel);
void exportMarkdown(const ScanCoordinator& coordinator, SavePanel& panel);

/// Writes the text as it stands, in place of what the file held.
void saveText(const std::string& text, const std::string& proposedName, SavePanel& panel);

} // namespace veridane::ui::ReportExport
