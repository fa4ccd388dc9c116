#include "scan/BundleInspector.h"

#include "platform/Text.h"
#include "scan/BundleWalk.h"
#include "scan/MachOInspector.h"
#include "scan/SignatureInspector.h"

#include <algorithm>

namespace veridane::BundleInspector {
namespace {

constexpr std::string_view categoryPrefix = "public.app-category.";

struct Category {
    std::string_view identifier; // behind the prefix
    std::string_view label;
};
constexpr Category categories[] = {
    {"business", "Business / Büro"},
    {"developer-tools", "Entwicklerwerkzeuge"},
    {"education", "Bildung"},
    {"entertainment", "Unterhaltung"},
    {"finance", "Finanzen"},
    {"games", "Spiele"},
    {"graphics-design", "Grafik & Design"},
    {"healthcare-fitness", "Gesundheit & Fitness"},
    {"lifestyle", "Lifestyle"},
    {"medical", "Medizin"},
    {"music", "Musik"},
    {"news", "Nachrichten"},
    {"photography", "Fotografie"},
    {"productivity", "Produktivität"},
    {"reference", "Nachschlagewerke"},
    {"social-networking", "Soziale Netzwerke"},
    {"sports", "Sport"},
    {"travel", "Reisen"},
    {"utilities", "Dienstprogramme"},
    {"video", "Video"},
    {"weather", "Wetter"},
};

std::optional<PropertyList> readInfoPlist(const FileSystem& files, const Path& bundle) {
    // The second place is that of flat bundles, as on iOS and in some plug-ins.
    for (const std::string_view place : {"Contents/Info.plist", "Info.plist"}) {
        if (auto plist = PropertyList::read(files, bundle / place))
            return plist;
    }
    return std::nullopt;
}

std::optional<std::string> textOf(const std::optional<PropertyList>& plist, std::string_view key) {
    return plist ? plist->text(key) : std::nullopt;
}

std::optional<std::string> nameIn(const std::optional<PropertyList>& infoPlist) {
    auto name = textOf(infoPlist, "CFBundleDisplayName");
    return name ? name : textOf(infoPlist, "CFBundleName");
}

UpdateSource classifyUpdateSource(const FileSystem& files, const Path& bundle, bool hasFeed,
                                  const SignatureIdentity& identity) {
    if (files.exists(bundle / "Contents/_MASReceipt/receipt") ||
        files.exists(bundle / "_MASReceipt/receipt"))
        return UpdateSource::macAppStore;
    if (hasFeed || files.exists(bundle / "Contents/Frameworks/Sparkle.framework"))
        return UpdateSource::sparkle;
    if (identity.isAppleSigned)
        return UpdateSource::macAppStore;
    return identity.isSigned ? UpdateSource::developerID : UpdateSource::unsigned_;
}

CompatibilityStatus statusOf(const ArchitectureReport& architecture, const BundleWalk& walk) {
    const CompatibilityStatus status = architecture.compatibilityStatus();
    // A script in front of Intel code: what the code needs is what the bundle needs.
    if (status == CompatibilityStatus::unknown && walk.worstStatus)
        return *walk.worstStatus;
    return status;
}

/// What is known of a bundle with nothing in it.
ScanItem emptyItem(const Path& bundle, ItemKind kind) {
    ScanItem item;
    item.id = Uuid::random();
    item.name = text::validUtf8(bundle.stem());
    item.path = bundle.text();
    item.kind = kind;
    item.sizeOnDisk = 0;
    item.updateSource = UpdateSource::unsigned_;
    return item;
}

} // namespace

ScanItem inspect(const FileSystem& files, const Path& bundle, ItemKind kind) {
    // All is read where the bundle stands: a link to it can take ten thousand steps to follow, and
    // a bundle can hold as many files.
    const Path place = files.resolvingLinks(bundle);
    ScanItem item = emptyItem(bundle, kind);
    const auto values = files.resourceValues(place);
    if (values && values->type == EntryType::symbolicLink)
        return item; // it leads nowhere, and each look below it would go all that way again

    const auto infoPlist = readInfoPlist(files, place);
    const auto executable = resolveExecutable(files, place, infoPlist);
    const auto architecture =
        executable ? MachOInspector::inspect(files, *executable) : emptyReport;
    BundleWalk walk = walkBundle(files, place, executable);
    SignatureIdentity identity = SignatureInspector::inspectBundle(files, place, executable);
    const auto category = textOf(infoPlist, "LSApplicationCategoryType");

    if (auto name = nameIn(infoPlist))
        item.name = *std::move(name);
    item.architecture = architecture;
    item.status = statusOf(architecture, walk);
    item.intelComponents = std::move(walk.intelComponents);
    item.bundleIdentifier = textOf(infoPlist, "CFBundleIdentifier");
    item.version = textOf(infoPlist, "CFBundleShortVersionString");
    item.buildNumber = textOf(infoPlist, "CFBundleVersion");
    item.vendor = identity.vendor ? std::move(identity.vendor)
                                  : vendorFromBundleIdentifier(item.bundleIdentifier);
    item.teamIdentifier = std::move(identity.teamIdentifier);
    if (category)
        item.categoryDescription = categoryLabel(*category);
    item.sizeOnDisk = walk.sizeOnDisk;
    if (values)
        item.lastModified = values->contentModificationDate;
    item.sparkleFeedURL = textOf(infoPlist, "SUFeedURL");
    item.updateSource =
        classifyUpdateSource(files, place, item.sparkleFeedURL.has_value(), identity);
    return item;
}

std::optional<Path> resolveExecutable(const FileSystem& files, const Path& bundle,
                                      const std::optional<PropertyList>& infoPlist) {
    const Path programs = bundle / "Contents/MacOS";
    const auto named = textOf(infoPlist, "CFBundleExecutable");
    if (named && !named->empty()) {
        for (const Path& folder : {programs, bundle}) {
            // Where the disk does not tell, another file would be judged in its place.
            if (Path path = folder / *named; files.mayExist(path))
                return path;
        }
    }
    if (const auto entries = files.list(programs); entries && !entries->empty())
        return programs / entries->front().name;
    const auto entries = files.list(bundle);
    if (!entries)
        return std::nullopt;
    for (const DirectoryEntry& entry : *entries) {
        if (entry.type != EntryType::regularFile)
            continue;
        if (Path path = bundle / entry.name; MachOInspector::isMachOFile(files, path))
            return path;
    }
    return std::nullopt;
}

std::string categoryLabel(std::string_view category) {
    if (category.starts_with(categoryPrefix)) {
        const auto* known = std::ranges::find(categories, category.substr(categoryPrefix.size()),
                                              &Category::identifier);
        if (known != std::end(categories))
            return std::string(known->label);
    }
    std::string words(category);
    for (std::size_t at = words.find(categoryPrefix); at != std::string::npos;
         at = words.find(categoryPrefix, at))
        words.erase(at, categoryPrefix.size());
    std::ranges::replace(words, '-', ' ');
    return text::capitalized(words);
}

std::optional<std::string>
vendorFromBundleIdentifier(const std::optional<std::string>& identifier) {
    if (!identifier)
        return std::nullopt;
    int parts = 0;
    std::string_view rest = *identifier;
    while (!rest.empty()) {
        const std::string_view part = rest.substr(0, rest.find('.'));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        if (!part.empty() && ++parts == 2)
            return text::capitalized(part);
    }
    return std::nullopt;
}

} // namespace veridane::BundleInspector
