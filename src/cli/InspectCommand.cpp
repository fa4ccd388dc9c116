#include "cli/InspectCommand.h"

#include "cli/InspectionText.h"
#include "platform/Text.h"
#include "scan/BundleInspector.h"
#include "scan/ExaminedVolume.h"
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
    const auto values = files.targetValues(path);
    if (values && values->type == EntryType::directory)
        return BundleInspector::inspect(files, path, kindOfBundle(path));
    return describeFile(files, {path, ItemKind::commandLineTool, {}});
}

// "./X" is shown as "X". A ".." stays: behind a link it leads elsewhere than the text says.
std::filesystem::path withoutDots(const std::filesystem::path& path) {
    std::filesystem::path result;
    for (const auto& component : path) {
        if (component != ".")
            result /= component;
    }
    return result;
}

// A path of this machine may be relative; one of a volume is always meant from its root. Nothing
// where the current folder is gone.
std::optional<Path> absolute(const std::string& path, bool onVolume) {
    if (onVolume)
        return Path(withoutDots(path).string());
    std::error_code error;
    const auto whole = std::filesystem::absolute(path, error);
    if (error)
        return std::nullopt;
    return Path(withoutDots(whole).string());
}

std::string absence(const std::string& path, bool onVolume) {
    std::error_code error;
    // What a volume's path leads to is no business of this machine's own lookup.
    if (onVolume || std::filesystem::exists(path, error) || !error)
        return path + " does not exist";
    return path + " cannot be reached: " + error.message();
}

} // namespace

ExitStatus inspect(const InspectArguments& arguments, const Console& console,
                   const std::stop_token& stop) {
    const auto opened = openVolume(arguments.volume);
    if (const auto* error = std::get_if<VolumeError>(&opened)) {
        complain(console, error->text);
        return failure;
    }
    const FileSystem files = std::get<ExaminedVolume>(opened).files->stoppingAt(stop);
    const bool onVolume = arguments.volume.has_value();
    ExitStatus status = success;
    std::vector<ScanItem> items;
    for (const std::string& text : arguments.paths) {
        if (stop.stop_requested())
            return interrupted;
        const auto path = absolute(text, onVolume);
        if (path && files.exists(*path)) {
            items.push_back(judge(files, *path));
        } else {
            complain(console, path && files.mayExist(*path) ? text + " cannot be read"
                                                            : absence(text, onVolume));
            status = failure;
        }
    }
    complainOfTrouble(console, files);
    const std::string result = arguments.format == InspectFormat::json
                                   ? inspectionJson(items)
                                   : inspectionText(items, console.coloursOut);
    if (!mayDeliver(console, stop))
        return interrupted;
    return print(console, result) ? status : failure;
}

} // namespace veridane::cli
