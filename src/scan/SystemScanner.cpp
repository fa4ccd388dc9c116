#include "scan/SystemScanner.h"

#include "platform/Language.h"
#include "platform/Locale.h"
#include "scan/BundleInspector.h"
#include "scan/FileItems.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <thread>
#include <tuple>
#include <unordered_set>

namespace veridane::SystemScanner {
namespace {

// Reports are thinned: a window cannot show more of them.
constexpr std::int64_t bundlesPerReport = 5;
constexpr std::int64_t filesPerReport = 10;

struct BundleTarget {
    Path path; // as the walk found it, not resolved
    ItemKind kind;
};

/// Where an item stands in the result.
struct Place {
    int rank;
    std::string nameKey;
    std::size_t index;
};

int sortRank(CompatibilityStatus status) {
    switch (status) {
    case CompatibilityStatus::incompatible:
        return 0;
    case CompatibilityStatus::needsRosetta:
        return 1;
    case CompatibilityStatus::unknown:
        return 2;
    case CompatibilityStatus::native:
        return 3;
    }
    return 3;
}

class Scan {
public:
    Scan(const FileSystem& files, const SearchLocations& locations, const ScanOptions& options,
         const OnProgress& onProgress, const std::stop_token& stop)
        : m_files(files.stoppingAt(stop)), m_locations(locations), m_options(options),
          m_onProgress(onProgress), m_stop(stop) {}

    std::vector<ScanItem> run() {
        collect();
        m_total = std::ssize(m_bundles) + std::ssize(m_targets);
        report(localized("Analysiere Programme …"), 0);
        if (readBundles() && readFiles())
            report(localized("Fertig"), m_total);
        return sorted();
    }

private:
    void collect() {
        if (m_options.includeApplications)
            collectBundles(m_locations.applicationRoots(), SearchLocations::applicationExtensions,
                           ItemKind::application);
        if (m_options.includeSystemApps)
            collectBundles(m_locations.systemApplicationRoots(),
                           SearchLocations::applicationExtensions, ItemKind::application);
        if (m_options.includeAudioPlugins)
            collectBundles(m_locations.audioPluginRoots(), SearchLocations::audioPluginExtensions,
                           ItemKind::audioPlugin);
        if (m_options.includeExtensions)
            collectBundles(m_locations.extensionRoots(), SearchLocations::extensionExtensions,
                           ItemKind::systemExtension);
        if (m_options.includeCommandLineTools) {
            for (const Path& root : m_locations.commandLineToolRoots()) {
                for (Path& path : listFiles(m_files, root))
                    m_targets.push_back({std::move(path), ItemKind::commandLineTool, {}});
            }
        }
        if (m_options.includeLaunchServices)
            std::ranges::move(launchServiceTargets(m_files, m_locations),
                              std::back_inserter(m_targets));
    }

    void collectBundles(const std::vector<Path>& roots, ExtensionSet extensions, ItemKind kind) {
        for (const Path& root : roots) {
            for (Path& path : findBundles(m_files, root, extensions))
                m_bundles.push_back({std::move(path), kind});
        }
    }

    // False when the scan is to stop.
    bool readBundles() {
        std::int64_t done = 0;
        for (const BundleTarget& target : m_bundles) {
            if (m_stop.stop_requested())
                return false;
            if (isMetFirst(resolved(target.path))) {
                ScanItem item = BundleInspector::inspect(m_files, target.path, target.kind);
                if (m_stop.stop_requested())
                    return false; // the item may be judged by a part of its files
                m_found.push_back(std::move(item));
            }
            ++done;
            if (done % bundlesPerReport == 0 || done == m_total)
                report(localized("Analysiere Programme …"), done);
            std::this_thread::yield();
        }
        return true;
    }

    bool readFiles() {
        std::int64_t done = std::ssize(m_bundles);
        for (const FileTarget& target : m_targets) {
            if (m_stop.stop_requested())
                return false;
            const Path place = resolved(target.path);
            if (auto item = isMetFirst(place) ? makeFileItem(m_files, target, place) : std::nullopt)
                m_found.push_back(std::move(*item));
            ++done;
            if (done % filesPerReport == 0 || done == m_total)
                report(localized("Analysiere Dienste & Tools …"), done);
            std::this_thread::yield();
        }
        return true;
    }

    // Of several ways to one object the first counts, and the others need not be read: everything
    // in /Applications/Utilities lies below two roots.
    bool isMetFirst(const Path& resolved) { return m_seen.insert(resolved.bytes()).second; }

    // The objects of a folder share the way to it, which links can make as long as they like.
    Path resolved(const Path& path) {
        const Path folder(std::string_view(path.bytes()).substr(0, path.bytes().rfind('/')));
        if (folder != m_folder) {
            m_folder = folder;
            m_resolvedFolder = m_files.resolvingLinks(folder);
        }
        return m_files.resolvingLinks(m_resolvedFolder / path.name());
    }

    std::vector<ScanItem> sorted() {
        const Collation collation;
        std::vector<Place> places;
        places.reserve(m_found.size());
        for (std::size_t i = 0; i < m_found.size(); ++i) {
            const ScanItem& item = m_found[i];
            places.push_back({sortRank(item.status), collation.key(item.name), i});
        }
        std::ranges::sort(places, {}, [](const Place& place) {
            return std::tie(place.rank, place.nameKey, place.index);
        });
        std::vector<ScanItem> items;
        items.reserve(places.size());
        for (const Place& place : places)
            items.push_back(std::move(m_found[place.index]));
        return items;
    }

    void report(std::string phase, std::int64_t completed) const {
        if (m_onProgress)
            m_onProgress({std::move(phase), completed, m_total});
    }

    const FileSystem m_files;
    const SearchLocations& m_locations;
    const ScanOptions& m_options;
    const OnProgress& m_onProgress;
    const std::stop_token& m_stop;
    std::vector<BundleTarget> m_bundles;
    std::vector<FileTarget> m_targets;
    std::unordered_set<std::string> m_seen; // paths without links
    Path m_folder, m_resolvedFolder;        // of the last object
    std::vector<ScanItem> m_found;
    std::int64_t m_total = 0;
};

} // namespace

std::vector<ScanItem> scan(const FileSystem& files, const SearchLocations& locations,
                           const ScanOptions& options, const OnProgress& onProgress,
                           const std::stop_token& stop) {
    return Scan(files, locations, options, onProgress, stop).run();
}

} // namespace veridane::SystemScanner
