#include "cli/ScanCommand.h"

#include "cli/ProgressBar.h"
#include "cli/ScanSummary.h"
#include "cli/UpdateChecks.h"
#include "model/JsonForms.h"
#include "model/NativeCounterparts.h"
#include "model/Recommendation.h"
#include "platform/AtomicFile.h"
#include "reports/ReportExporter.h"
#include "scan/ExaminedVolume.h"
#include "scan/SystemScanner.h"

#include <algorithm>

namespace veridane::cli {
namespace {

std::vector<ScanItem> scanItems(const ExaminedVolume& volume, const ScanArguments& arguments,
                                const Console& console, const std::stop_token& stop) {
    if (!arguments.showsProgress || !console.showsProgress)
        return SystemScanner::scan(*volume.files, volume.locations, arguments.options, {}, stop);
    ProgressBar bar(console.err, console.columns);
    return SystemScanner::scan(
        *volume.files, volume.locations, arguments.options,
        [&bar](const ScanProgress& progress) { bar.show(progress); }, stop);
}

std::optional<std::string> resultText(const ScanArguments& arguments, std::vector<ScanItem> items,
                                      bool coloured) {
    switch (arguments.format) {
    case ScanFormat::summary:
        return scanSummary(items, coloured);
    case ScanFormat::csv:
        return ReportExporter::csvReport(items);
    case ScanFormat::json:
        return ReportExporter::jsonReport(items);
    case ScanFormat::markdown:
        return ReportExporter::markdownReport(items);
    case ScanFormat::snapshot:
        return json::snapshotText(
            {.scannedAt = now(), .options = arguments.options, .items = std::move(items)});
    }
    return std::nullopt;
}

bool anyNeedsAttention(const std::vector<ScanItem>& items) {
    const NativeCounterparts counterparts(items);
    return std::ranges::any_of(
        items, [&](const ScanItem& item) { return needsAttention(urgencyOf(item, counterparts)); });
}

/// The status that the program would end with if everything else went well.
ExitStatus deliver(const ScanArguments& arguments, const Console& console,
                   const std::stop_token& stop, const std::string& text) {
    const auto& file = arguments.outputFile;
    // A file that is replaced can be given up until the end, and then leaves nothing behind.
    if ((!file || isWrittenInPlace(*file)) && !mayDeliver(console, stop))
        return interrupted;
    if (!file)
        return print(console, text) ? success : failure;
    const auto error = writeFileAtomically(*file, text, stop);
    if (!error)
        return success;
    if (stop.stop_requested())
        return interrupted;
    complain(console, *file + " cannot be written: " + *error);
    return failure;
}

} // namespace

ExitStatus scan(const ScanArguments& arguments, const Console& console,
                const std::stop_token& stop) {
    const auto opened = openVolume(arguments.volume, arguments.homes);
    if (const auto* error = std::get_if<VolumeError>(&opened)) {
        complain(console, error->text);
        return failure;
    }
    if (arguments.checksUpdates && !canAskTheStore(console))
        return failure;
    std::vector<ScanItem> items =
        scanItems(std::get<ExaminedVolume>(opened), arguments, console, stop);
    if (arguments.checksUpdates && !stop.stop_requested())
        checkUpdates(items, arguments, console, stop);
    if (stop.stop_requested())
        return interrupted;
    complainOfTrouble(console, *std::get<ExaminedVolume>(opened).files);
    const bool fails = arguments.failsOnAttention && anyNeedsAttention(items);
    const bool coloured = console.coloursOut && !arguments.outputFile;
    const auto text = resultText(arguments, std::move(items), coloured);
    if (!text) {
        complain(console, "the report cannot be made");
        return failure;
    }
    const ExitStatus status = deliver(arguments, console, stop, *text);
    return status == success && fails ? attentionNeeded : status;
}

} // namespace veridane::cli
