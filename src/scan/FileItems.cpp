#include "scan/FileItems.h"

#include "platform/PropertyList.h"
#include "platform/Text.h"
#include "scan/MachOInspector.h"
#include "scan/SignatureInspector.h"

namespace veridane {
namespace {

std::optional<std::string> programOf(const PropertyList& plist) {
    if (auto program = plist.text("Program"))
        return program;
    const auto arguments = plist.textList("ProgramArguments");
    if (!arguments || arguments->empty())
        return std::nullopt;
    return arguments->front();
}

std::optional<FileTarget> launchServiceTarget(const FileSystem& files, const Path& file) {
    const auto plist = PropertyList::read(files, file);
    if (!plist)
        return std::nullopt;
    const auto program = programOf(*plist);
    // A program inside an application is judged with the application.
    if (!program || !program->starts_with('/') || program->find(".app/") != std::string::npos)
        return std::nullopt;
    Path path(*program);
    if (!files.exists(path))
        return std::nullopt;
    auto name = plist->text("Label");
    if (!name)
        name = text::validUtf8(path.name());
    return FileTarget{std::move(path), ItemKind::launchService, std::move(name)};
}

ScanItem makeItem(const FileSystem& files, const FileTarget& target, const Path& resolved,
                  ArchitectureReport report) {
    SignatureIdentity identity = SignatureInspector::inspectFile(files, resolved);
    ScanItem item;
    item.id = Uuid::random();
    item.name = target.name ? *target.name : text::validUtf8(target.path.name());
    item.path = target.path.text();
    item.kind = target.kind;
    item.status = report.compatibilityStatus();
    item.architecture = std::move(report);
    item.vendor = std::move(identity.vendor);
    item.teamIdentifier = std::move(identity.teamIdentifier);
    if (const auto values = files.resourceValues(resolved)) {
        item.sizeOnDisk = values->size;
        item.lastModified = values->contentModificationDate;
    }
    item.updateSource = identity.isSigned ? UpdateSource::developerID : UpdateSource::unsigned_;
    return item;
}

} // namespace

std::vector<Path> listFiles(const FileSystem& files, const Path& directory) {
    std::vector<Path> result;
    const auto entries = files.list(directory);
    if (!entries)
        return result;
    for (const DirectoryEntry& entry : *entries) {
        if (entry.type != EntryType::directory)
            result.push_back(directory / entry.name);
    }
    return result;
}

std::vector<FileTarget> launchServiceTargets(const FileSystem& files,
                                             const SearchLocations& locations) {
    std::vector<FileTarget> targets;
    for (const Path& root : locations.launchServiceRoots()) {
        const auto entries = files.list(root);
        if (!entries)
            continue;
        for (const DirectoryEntry& entry : *entries) {
            const Path file = root / entry.name;
            if (text::lowercased(file.extension()) != "plist")
                continue;
            if (auto target = launchServiceTarget(files, file))
                targets.push_back(std::move(*target));
        }
    }
    return targets;
}

std::optional<ScanItem> makeFileItem(const FileSystem& files, const FileTarget& target,
                                     const Path& resolved) {
    ArchitectureReport report = MachOInspector::inspect(files, resolved);
    if (!report.isMachO)
        return std::nullopt;
    return makeItem(files, target, resolved, std::move(report));
}

ScanItem describeFile(const FileSystem& files, const FileTarget& target) {
    const Path resolved = files.resolvingLinks(target.path);
    return makeItem(files, target, resolved, MachOInspector::inspect(files, resolved));
}

} // namespace veridane
