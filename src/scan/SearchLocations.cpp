#include "scan/SearchLocations.h"

#include "platform/Text.h"
#include "platform/WalkVisitor.h"

#include <algorithm>
#include <string>

namespace veridane {
namespace {

// A row that does not begin with a slash lies in each home.
using Row = std::string_view;

constexpr Row applicationRows[] = {
    "/Applications",
    "/Applications/Utilities",
    "Applications",
};
constexpr Row systemApplicationRows[] = {
    "/System/Applications",
    "/System/Applications/Utilities",
};
constexpr Row audioPluginRows[] = {
    "/Library/Audio/Plug-Ins/Components", "/Library/Audio/Plug-Ins/VST",
    "/Library/Audio/Plug-Ins/VST3",       "/Library/Application Support/Avid/Audio/Plug-Ins",
    "Library/Audio/Plug-Ins/Components",  "Library/Audio/Plug-Ins/VST",
    "Library/Audio/Plug-Ins/VST3",
};
constexpr Row extensionRows[] = {
    "/Library/PreferencePanes", "Library/PreferencePanes",   "/Library/QuickLook",
    "Library/QuickLook",        "/Library/Spotlight",        "/Library/Screen Savers",
    "Library/Screen Savers",    "/Library/SystemExtensions",
};
constexpr Row commandLineToolRows[] = {
    "/usr/local/bin",     "/usr/local/sbin", "/opt/homebrew/bin",
    "/opt/homebrew/sbin", "/opt/local/bin",  ".local/bin",
};
constexpr Row launchServiceRows[] = {
    "/Library/LaunchAgents",
    "/Library/LaunchDaemons",
    "Library/LaunchAgents",
};

constexpr std::string_view applicationNames[] = {"app"};
constexpr std::string_view audioPluginNames[] = {"component", "vst", "vst3", "aax", "audiounit"};
constexpr std::string_view extensionNames[] = {"prefpane", "qlgenerator", "mdimporter",     "saver",
                                               "plugin",   "bundle",      "systemextension"};

// Folders of vendors inside /Applications are two or three deep.
constexpr int deepestLevel = 5;

std::vector<Path> roots(std::span<const Row> rows, const std::vector<Path>& homes) {
    std::vector<Path> result;
    for (const Row row : rows) {
        if (row.front() == '/') {
            result.emplace_back(row);
            continue;
        }
        for (const Path& home : homes)
            result.push_back(home / row);
    }
    return result;
}

class BundleFinder : public WalkVisitor {
public:
    BundleFinder(const Path& root, ExtensionSet extensions)
        : m_root(root), m_extensions(extensions) {}

    Next visit(const WalkEntry& entry) override {
        if (matches(entry.name)) {
            m_found.push_back(m_root / entry.relativePath);
            return Next::skipDescendants;
        }
        return entry.level < deepestLevel ? Next::descend : Next::skipDescendants;
    }

    [[nodiscard]] std::vector<Path> found() && { return std::move(m_found); }

private:
    [[nodiscard]] bool matches(std::string_view name) const {
        const std::size_t dot = name.rfind('.');
        if (dot == std::string_view::npos)
            return false;
        const std::string extension = text::lowercased(name.substr(dot + 1));
        return std::ranges::find(m_extensions, extension) != m_extensions.end();
    }

    const Path& m_root;
    ExtensionSet m_extensions;
    std::vector<Path> m_found;
};

} // namespace

const ExtensionSet SearchLocations::applicationExtensions{applicationNames};
const ExtensionSet SearchLocations::audioPluginExtensions{audioPluginNames};
const ExtensionSet SearchLocations::extensionExtensions{extensionNames};

SearchLocations::SearchLocations(std::vector<Path> homes) : m_homes(std::move(homes)) {
    std::ranges::sort(m_homes, {}, &Path::bytes);
    m_homes.erase(std::unique(m_homes.begin(), m_homes.end()), m_homes.end());
}

std::vector<Path> SearchLocations::applicationRoots() const {
    return roots(applicationRows, m_homes);
}
std::vector<Path> SearchLocations::systemApplicationRoots() const {
    return roots(systemApplicationRows, m_homes);
}
std::vector<Path> SearchLocations::audioPluginRoots() const {
    return roots(audioPluginRows, m_homes);
}
std::vector<Path> SearchLocations::extensionRoots() const {
    return roots(extensionRows, m_homes);
}
std::vector<Path> SearchLocations::commandLineToolRoots() const {
    return roots(commandLineToolRows, m_homes);
}
std::vector<Path> SearchLocations::launchServiceRoots() const {
    return roots(launchServiceRows, m_homes);
}

std::vector<Path> SearchLocations::homesOnVolume(const FileSystem& files) {
    const Path users("/Users");
    std::vector<Path> homes;
    const auto entries = files.list(users);
    if (!entries)
        return homes;
    for (const DirectoryEntry& entry : *entries) {
        if (entry.type == EntryType::directory && entry.name != "Shared")
            homes.push_back(users / entry.name);
    }
    return homes;
}

std::vector<Path> findBundles(const FileSystem& files, const Path& root, ExtensionSet extensions) {
    BundleFinder finder(root, extensions);
    files.walk(root, finder);
    return std::move(finder).found();
}

} // namespace veridane
