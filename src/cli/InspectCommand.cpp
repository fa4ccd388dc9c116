#include "cli/InspectCommand.h"

#include "cli/InspectionText.h"
#include "cli/Volume.h"
#include "platform/Text.h"
#include "scan/BundleInspector.h"
#include "scan/FileItems.h"

#include <algorithm>
#include <filesystem>

namespace veridane::cli {
namespace {

ItemKind kindOfBundle(const Path& path) {
    const std::string extension = text::lowercased(path.extension());
    const auto isOneOf = [&](ExtensionSet extensions) {
        return std::ranges::find(extensions, extension) != extensions.end();
    };
    if (isOneOf(SearchLocations::applicationExtensions))
        return ItemKind::application;
    if (isOneOf(SearchLocations::audioPluginExtensions))
        return ItemKind::audioPlugin;
    if (isOneOf(SearchLocations::extensionExtensions))
        return ItemKind::systemExtension;
    return ItemKind::other;
}

ScanItem judge(const FileSystem& files, const Path& path) {
    const auto values = files.resourceValues(files.resolvingLinks(path));
    if (values && values->type == EntryType::directory)
        return BundleInspector::inspect(files, path, kindOfBundle(path));
    return describeFile(files, {path, ItemKind::commandLineTool, {}});
}

// A path of this machine may be relative; one of a volume is always meant from its root.
Path absolute(const std::string& path, bool onVolume) {
    if (onVolume)
        return Path(path);
    std::error_code error;
    const auto whole = std::filesystem::absolute(path, error);
    return Path(error ? path : whole.string());
}

} // namespace

ExitStatus inspect(const InspectArguments& arguments, const Console& console,
                   const std::stop_token& stop) {
    const auto files = openVolume(arguments.volume, console);
    if (!files)
        return failure;
    ExitStatus status = success;
    std::vector<ScanItem> items;
    for (const std::string& text : arguments.paths) {
        if (stop.stop_requested())
            return interrupted;
        const Path path = absolute(text, arguments.volume.has_value());
        if (files->exists(path)) {
            items.push_back(judge(*files, path));
        } else {
            complain(console, text + " does not exist");
            status = failure;
        }
    }
    const std::string result = arguments.format == InspectFormat::json
                                   ? inspectionJson(items)
                                   : inspectionText(items, console.coloursOut);
    return print(console, result) ? status : failure;
}

} // namespace veridane::cli
