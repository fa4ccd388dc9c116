#include "sample-fleet/Fleet.h"

#include "platform/Path.h"
#include "sample-fleet/FleetTables.h"

#include <algorithm>
#include <optional>
#include <set>

namespace veridane::sample {
namespace {

/// Answers questions by chance, each for itself: a further row in a table changes no other answer.
class Dice {
public:
    Dice(std::uint64_t seed, int number)
        : m_start(seed * 0x9E3779B97F4A7C15u + static_cast<std::uint64_t>(number)) {}

    /// True in so many of a hundred Macs.
    [[nodiscard]] bool says(std::string_view question, std::string_view about, int percent) const {
        return number(question, about) % 100 < static_cast<std::uint64_t>(percent);
    }

    [[nodiscard]] std::uint64_t number(std::string_view question,
                                       std::string_view about = {}) const {
        std::uint64_t hash = mixed(m_start);
        for (const std::string_view text : {question, about}) {
            for (const char c : text)
                hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
        }
        return mixed(hash);
    }

private:
    static std::uint64_t mixed(std::uint64_t value) { // the end of splitmix64
        value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9u;
        value = (value ^ (value >> 27)) * 0x94D049BB133111EBu;
        return value ^ (value >> 31);
    }

    std::uint64_t m_start;
};

enum class Department { office, development, design, audio };

/// How a Mac came to its software: set up anew, grown, or taken over from an Intel Mac.
enum class History { fresh, grown, migrated };

std::string_view nameOf(Department department) {
    switch (department) {
    case Department::office:
        return "office";
    case Department::development:
        return "development";
    case Department::design:
        return "design";
    case Department::audio:
        return "audio";
    }
    return {};
}

bool isNative(Code code) {
    return code == appleSilicon || code == appleSystem || code == universal;
}

bool isIntel(Code code) {
    return code == intel || code == intelWith32Bit;
}

std::string_view statusOf(Code code) {
    if (isNative(code))
        return "native";
    if (isIntel(code))
        return "needsRosetta";
    return code == script ? "unknown" : "incompatible";
}

/// Whose software it is; nothing for everybody's.
std::optional<Department> departmentOf(std::string_view path, std::string_view category) {
    if (category == "developer-tools")
        return Department::development;
    if (category == "graphics-design" || category == "photography")
        return Department::design;
    if (category == "music" || path.find("/Audio/") != std::string_view::npos)
        return Department::audio;
    return std::nullopt;
}

Edition successorOf(std::string_view identifier) {
    const auto* found = std::ranges::find(successors, identifier, [](const Successor& successor) {
        return std::string_view(successor.identifier);
    });
    return found == std::end(successors) ? Edition() : found->edition;
}

/// What of the sample Mac a company's Mac could have as well: not what its people or the system
/// brought, what is there twice, or what has a name that only makes trouble.
bool isCommon(const Bundle& bundle) {
    const std::string_view path = bundle.path;
    return !path.starts_with("/Users/") && !path.starts_with("/System/") &&
           path.find("/Archiv/") == std::string_view::npos && !*bundle.extras.displayName;
}

Bundle bundleOf(const Product& product) {
    const Edition& edition = product.old.version ? product.old : product.current;
    const auto size = Dice(0, 0).number("size", product.identifier) % 400;
    return {product.path, product.identifier, edition.version,       edition.version,
            edition.code, 60 + int(size),     {edition.year, 6, 15}, product.maker,
            developerID,  product.category};
}

class Furnisher {
public:
    Furnisher(std::uint64_t seed, int number, Visit visit)
        : m_dice(seed, number), m_visit(visit), m_department(departmentByChance()),
          m_history(historyByChance()),
          m_home("/Users/" +
                 std::string(accounts[m_dice.number("account") % std::size(accounts)])) {}

    FleetMac furnished() && {
        m_mac.department = nameOf(m_department);
        for (const Bundle& bundle : bundles) {
            if (isCommon(bundle))
                offer(bundle, isNative(bundle.code) ? Edition() : successorOf(bundle.identifier));
        }
        for (const Product& product : products)
            offer(bundleOf(product), product.old.version ? product.current : Edition());
        for (const PluginFamily& family : pluginFamilies)
            offer(family);
        addHiddenParts();
        addTools();
        addServices();
        return std::move(m_mac);
    }

private:
    Department departmentByChance() const {
        const auto roll = m_dice.number("department") % 100;
        if (roll < 50)
            return Department::office;
        if (roll < 70)
            return Department::development;
        return roll < 88 ? Department::design : Department::audio;
    }

    History historyByChance() const {
        const auto roll = m_dice.number("history") % 100;
        if (roll < 12)
            return History::fresh;
        return roll < 75 ? History::grown : History::migrated;
    }

    const char* kept(std::string text) { return m_mac.texts.emplace_back(std::move(text)).c_str(); }

    [[nodiscard]] bool wants(const Bundle& bundle, bool hasSuccessor) const {
        const bool isFresh = m_history == History::fresh;
        if (!isNative(bundle.code) && !hasSuccessor) {
            // What only old Macs bring along: the rest of the fleet has long found something else.
            const int percent = isIntel(bundle.code) ? 12 : bundle.code == script ? 6 : 1;
            return !isFresh && m_dice.says("clings", bundle.identifier, percent) &&
                   belongs(bundle, 100);
        }
        return belongs(bundle, 65);
    }

    [[nodiscard]] bool belongs(const Bundle& bundle, int percent) const {
        const auto department = departmentOf(bundle.path, bundle.category);
        const bool isElsewhere = department && *department != m_department;
        return m_dice.says("has", bundle.identifier, isElsewhere ? 3 : percent);
    }

    /// Whether an old edition, or a part of one, is still there although there is a newer one.
    [[nodiscard]] bool isBehind(std::string_view identifier) const {
        if (m_history == History::fresh)
            return false;
        const bool wasBehind =
            m_dice.says("behind", identifier, m_history == History::migrated ? 45 : 7);
        return wasBehind && (m_visit == Visit::first || !m_dice.says("update", identifier, 60));
    }

    void offer(Bundle bundle, const Edition& successor) {
        if (*bundle.path == '~')
            bundle.path = kept(m_home + (bundle.path + 1));
        if (!wants(bundle, successor.version != nullptr))
            return;
        if (!successor.version || isBehind(bundle.identifier)) {
            m_mac.bundles.push_back(bundle);
            return;
        }
        if (m_history != History::fresh && std::string_view(bundle.path).ends_with(".app") &&
            m_dice.says("archive", bundle.identifier, 4)) {
            m_mac.bundles.push_back(bundle);
            m_mac.bundles.back().path = kept(archived(bundle));
        }
        bundle.version = bundle.build = successor.version;
        bundle.code = successor.code;
        bundle.modified = {successor.year, 10, 1};
        m_mac.bundles.push_back(bundle);
    }

    static std::string archived(const Bundle& bundle) {
        const Path path(bundle.path);
        return "/Applications/Archiv/" + std::string(path.stem()) + " " + bundle.version + ".app";
    }

    void offer(const PluginFamily& family) {
        for (const PluginFormat& format : pluginFormats) {
            if (!m_dice.says(format.extension, family.identifier, 80))
                continue;
            const Product product{kept(format.folder + std::string(family.name) + format.extension),
                                  kept(family.identifier + std::string(format.extension)),
                                  "",
                                  family.maker,
                                  family.old,
                                  family.current};
            offer(bundleOf(product), product.old.version ? product.current : Edition());
        }
    }

    [[nodiscard]] const Bundle* installed(std::string_view identifier) const {
        const auto found = std::ranges::find_if(m_mac.bundles, [&](const Bundle& bundle) {
            return bundle.identifier == identifier &&
                   std::string_view(bundle.path).find("/Archiv/") == std::string_view::npos;
        });
        return found == m_mac.bundles.end() ? nullptr : &*found;
    }

    void addHiddenParts() {
        const auto add = [this](const Component& part) {
            const bool isThere = std::ranges::any_of(m_mac.bundles, [&](const Bundle& bundle) {
                return std::string_view(part.path).starts_with(std::string(bundle.path) + "/") &&
                       !successorHasCome(bundle);
            });
            if (isThere && isBehind(part.path))
                m_mac.components.push_back(part);
        };
        std::ranges::for_each(components, add);
        std::ranges::for_each(hiddenParts, add);
    }

    static bool successorHasCome(const Bundle& bundle) {
        const Edition successor = successorOf(bundle.identifier);
        return successor.version && std::string_view(bundle.version) == successor.version;
    }

    void addTools() {
        if (m_department != Department::development && !m_dice.says("terminal", "", 8))
            return;
        const bool isOld = m_history == History::migrated;
        const std::string folder = isOld ? "/usr/local/bin/" : "/opt/homebrew/bin/";
        for (const char* name : packagedTools) {
            if (m_dice.says("tool", name, 60))
                m_mac.tools.push_back({kept(folder + name),
                                       isOld ? intel : appleSilicon,
                                       32,
                                       {isOld ? 2021 : 2025, 3, 2},
                                       {},
                                       adHoc});
        }
    }

    void addServices() {
        for (const Daemon& daemon : daemons) {
            const Bundle* owner = installed(daemon.product);
            if (!owner)
                continue;
            m_mac.tools.push_back(
                {daemon.program, owner->code, 40, owner->modified, daemon.maker, developerID});
            m_mac.services.push_back(
                {kept("/Library/LaunchDaemons/" + std::string(daemon.label) + ".plist"),
                 daemon.label, daemon.program, true});
        }
    }

    const Dice m_dice;
    const Visit m_visit;
    const Department m_department;
    const History m_history;
    const std::string m_home;
    FleetMac m_mac;
};

} // namespace

FleetMac fleetMac(std::uint64_t seed, int number, Visit visit) {
    return Furnisher(seed, number, visit).furnished();
}

void write(test::VolumeBuilder& volume, const FleetMac& mac) {
    const auto writeAll = [&](const auto& rows) {
        for (const auto& row : rows)
            write(volume, row);
    };
    writeAll(mac.bundles);
    writeAll(mac.components);
    writeAll(mac.tools);
    writeAll(mac.services);
}

std::string expectedObjects(const FleetMac& mac) {
    std::set<std::string> lines;
    const auto add = [&](std::string_view status, bool hides, std::string_view path) {
        lines.insert(std::string(status) + (hides ? "\t1\t" : "\t0\t") + std::string(path) + "\n");
    };
    for (const Bundle& bundle : mac.bundles) {
        const bool hasParts = std::ranges::any_of(mac.components, [&](const Component& part) {
            return !isNative(part.code) &&
                   std::string_view(part.path).starts_with(std::string(bundle.path) + "/");
        });
        // A script is judged by the code that it starts.
        const std::string_view status =
            bundle.code == script && hasParts ? "needsRosetta" : statusOf(bundle.code);
        add(status, hasParts && isNative(bundle.code), bundle.path);
    }
    for (const Tool& tool : mac.tools)
        add(statusOf(tool.code), false, tool.path);
    std::string text;
    for (const std::string& line : lines)
        text += line;
    return text;
}

} // namespace veridane::sample
