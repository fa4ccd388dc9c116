#include "hostile-volume/HostileVolume.h"

#include "cli/Commands.h"
#include "hostile/Mover.h"
#include "hostile/OpenWatch.h"
#include "hostile/ProgramRun.h"
#include "model/JsonForms.h"
#include "model/SnapshotReader.h"
#include "platform/Environment.h"
#include "platform/Text.h"
#include "reports/ReportExporter.h"
#include "scan/SystemScanner.h"
#include "support/OrdinaryUser.h"
#include "support/ProcessLimit.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <map>
#include <memory>
#include <sstream>

namespace veridane::test {
namespace {

using Items = std::vector<ScanItem>;

/// Another volume than that of each day: VERIDANE_HOSTILE_SEED=7
std::uint64_t seed() {
    return std::stoull(Environment::variable("VERIDANE_HOSTILE_SEED").value_or("1"));
}

/// The volume and what has been done with it. It is built once, for the sake of the disk.
struct World {
    World() {
        EXPECT_EQ(mac.failure(), std::nullopt);
        EXPECT_EQ(outside.failure(), std::nullopt);
        watch.addTree(outside.root());
        for (const std::string& path : volume.silent)
            watch.add(mac.hostPath(path));
    }

    [[nodiscard]] Items scan(std::int64_t stopAt = -1) const {
        std::stop_source stop;
        const auto onProgress = [&](const ScanProgress& progress) {
            if (progress.completed == stopAt)
                stop.request_stop();
        };
        const FileSystem files = mac.files();
        const SearchLocations locations(SearchLocations::homesOnVolume(files));
        const ProcessLimit few(RLIMIT_NOFILE, 64);
        return SystemScanner::scan(files, locations, {}, onProgress, stop.get_token());
    }

    Program program; // opened by whoever runs the test
    OrdinaryUser user;
    VolumeBuilder place, mac{place.hostPath("/mac")}, outside{place.hostPath("/outside")};
    const HostileVolume volume = writeHostileVolume(mac, outside, seed());
    OpenWatch watch;
};

class Hostile : public ::testing::Test {
protected:
    static void SetUpTestSuite() { world = std::make_unique<World>(); }
    static void TearDownTestSuite() { world.reset(); }

    /// Of the volume as it stands.
    static const Items& items() {
        static const Items found = world->scan();
        return found;
    }

    static inline std::unique_ptr<World> world;
};

std::string joined(const Texts& texts) {
    std::string all;
    for (const std::string& text : texts)
        all += text + ' ';
    return all;
}

/// What is promised of an object, in a line that can be compared. All text is as it is shown.
std::string lineOf(const Promise& promise) {
    Texts parts = promise.parts.value_or(Texts{"any parts"});
    for (std::string& part : parts)
        part = text::validUtf8(part);
    std::ranges::sort(parts);
    return text::validUtf8(promise.path) + " | " + std::string(rawString(promise.kind)) + " | " +
           std::string(promise.status ? rawString(*promise.status) : "any status") + " | " +
           joined(parts);
}

/// The same for an object that a scan has found, as far as anything is promised of it.
std::string lineOf(const ScanItem& item, const Promise* promise) {
    Promise found{item.path, item.kind, item.status, Texts()};
    for (const std::string& part : item.intelComponents)
        found.parts->push_back(part.substr(part.rfind('/') + 1));
    if (promise && !promise->status)
        found.status.reset();
    if (promise && !promise->parts)
        found.parts.reset();
    return lineOf(found);
}

/// What is there too much and too little, against all promises.
Texts differences(const Items& items, const HostileVolume& volume) {
    std::map<std::string, const Promise*> byPath;
    Texts expected, found, result;
    for (const Promise& promise : volume.promises) {
        byPath[text::validUtf8(promise.path)] = &promise;
        expected.push_back(lineOf(promise));
    }
    for (const ScanItem& item : items) {
        const auto promise = byPath.find(item.path);
        if (!HostileVolume::isUnpromised(item.path))
            found.push_back(lineOf(item, promise == byPath.end() ? nullptr : promise->second));
    }
    std::ranges::sort(expected);
    std::ranges::sort(found);
    std::ranges::set_symmetric_difference(expected, found, std::back_inserter(result));
    return result;
}

/// Of two scans nothing but the random identifiers differs.
Items withoutIds(Items items) {
    for (ScanItem& item : items)
        item.id = {};
    return items;
}

std::string snapshotOf(const Items& items) {
    return json::snapshotText({.scannedAt = Date(), .options = {}, .items = items});
}

/// Rows of cells, as a spreadsheet reads them.
std::vector<Texts> readCsv(const std::string& csv) {
    std::vector<Texts> rows{{""}};
    bool isQuoted = false;
    for (std::size_t i = 0; i < csv.size(); ++i) {
        if (csv[i] == '"' && isQuoted && csv[i + 1] == '"')
            rows.back().back() += csv[++i];
        else if (csv[i] == '"' && (isQuoted || rows.back().back().empty()))
            isQuoted = !isQuoted;
        else if (csv[i] == ';' && !isQuoted)
            rows.back().emplace_back();
        else if (csv[i] == '\n' && !isQuoted)
            rows.push_back({""});
        else
            rows.back().back() += csv[i];
    }
    return rows;
}

/// Nothing in it moves the cursor, breaks a line, turns text around or is no text.
bool isTame(const std::string& shown) {
    const auto isControl = [](char c) {
        return (c >= 0 && c < ' ' && c != '\n') || c == 0x7F;
    };
    const auto isBetween = [](char c, char first, char last) {
        return c >= first && c <= last;
    };
    for (std::size_t i = 0; i + 2 < shown.size(); ++i) {
        const std::string_view pair(&shown[i], 2);
        if ((pair == "\xE2\x80" && isBetween(shown[i + 2], '\xA8', '\xAE')) ||
            (pair == "\xE2\x81" && isBetween(shown[i + 2], '\xA6', '\xA9')) ||
            (shown[i] == '\xC2' && isBetween(shown[i + 1], '\x80', '\x9F')))
            return false;
    }
    return std::ranges::none_of(shown, isControl) && text::validUtf8(shown) == shown;
}

#ifdef VERIDANE_CLI
// First of all, as a process inherits the size of the one that starts it.
TEST_F(Hostile, TheProgramStaysSmallAndNeedsFewDescriptors) {
    constexpr long mostKilobytes = 100 * 1024;
    for (const char* format : {"summary", "json"}) {
        const auto run = world->program.run({"scan", "--volume", world->mac.root(), "--format",
                                             format, "-o", world->place.hostPath("/report")});
        EXPECT_EQ(run.status, 0) << format;
        EXPECT_LT(run.mostKilobytes, mostKilobytes) << format;
        RecordProperty(std::string(format) + "Kilobytes", std::to_string(run.mostKilobytes));
    }
}
#endif

TEST_F(Hostile, EachObjectIsFoundOnceAndJudgedAsIfItStoodAlone) {
    EXPECT_EQ(differences(items(), world->volume), Texts());
}

TEST_F(Hostile, ASecondScanSaysTheSame) {
    EXPECT_TRUE(withoutIds(world->scan()) == withoutIds(items()));
}

TEST_F(Hostile, ASumOfSizesStopsAtTheLargestNumber) {
    const std::string bundle = "/Applications/more bytes than can be counted.app";
    const auto item = std::ranges::find(items(), bundle, &ScanItem::path);
    ASSERT_NE(item, items().end());
    const auto size = static_cast<std::int64_t>(
        std::filesystem::file_size(world->mac.hostPath(bundle + "/Contents/Extra/1")));
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    EXPECT_GE(*item->sizeOnDisk, size > most / 3 ? most : 3 * size);
}

TEST_F(Hostile, ReportsCanBeReadAgainAndAreText) {
    const std::string csv = ReportExporter::csvReport(items());
    const std::string json = ReportExporter::jsonReport(items()).value_or("none");
    const std::string markdown = ReportExporter::markdownReport(items());
    const std::string snapshot = snapshotOf(items());
    for (const std::string& report : {csv, json, markdown, snapshot}) {
        EXPECT_TRUE(text::validUtf8(report) == report) << report.substr(0, 20);
        EXPECT_EQ(report.find(HostileVolume::canary), std::string::npos);
    }
    const auto rows = readCsv(csv);
    const auto objects = nlohmann::json::parse(json)["items"];
    const auto kept = json::readSnapshot(snapshot);
    ASSERT_EQ(rows.size(), items().size() + 1);
    ASSERT_EQ(objects.size(), items().size());
    ASSERT_TRUE(kept.has_value());
    EXPECT_TRUE(snapshotOf(kept->items) == snapshot);
    for (std::size_t i = 0; i < items().size(); ++i) {
        ASSERT_EQ(rows[i + 1].size(), 13U) << i;
        EXPECT_EQ(rows[i + 1].front(), items()[i].name);
        EXPECT_EQ(rows[i + 1].back(), items()[i].path);
        EXPECT_EQ(objects[i]["path"], items()[i].path);
        EXPECT_EQ(kept->items[i].intelComponents, items()[i].intelComponents);
    }
}

TEST_F(Hostile, ATerminalIsShownTextAlone) {
    Texts scan{"scan", "--volume", world->mac.root()}, inspect{"inspect", "--volume", scan[2]};
    for (const Promise& promise : world->volume.promises) {
        if (promise.path.find("/Damage/") == std::string::npos)
            inspect.push_back(promise.path);
    }
    std::ranges::copy(world->volume.silent, std::back_inserter(inspect));
    for (const Texts& arguments : {scan, inspect}) {
        std::ostringstream out, err;
        const int status = cli::run(arguments, {.out = out, .err = err}, {});
        EXPECT_EQ(status, arguments == scan ? 0 : 2) << "Some paths lead nowhere, which is told.";
        EXPECT_TRUE(isTame(out.str()) && isTame(err.str())) << arguments[0];
        EXPECT_EQ((out.str() + err.str()).find(HostileVolume::canary), std::string::npos);
    }
    inspect.insert(inspect.begin() + 1, {"--format", "json"});
    std::ostringstream out, err;
    EXPECT_EQ(cli::run(inspect, {.out = out, .err = err}, {}), 2);
    EXPECT_GE(nlohmann::json::parse(out.str()).size() + 20, inspect.size());
}

TEST_F(Hostile, AScanCanBeCancelledAnywhere) {
    for (const std::int64_t stopAt : {0, 5, 100, 1000})
        EXPECT_LE(std::ssize(world->scan(stopAt)), stopAt);
}

TEST_F(Hostile, WhatChangesMeanwhileHarmsNothingElse) {
    Items found;
    {
        const Mover mover(world->mac, world->outside);
        found = world->scan();
    }
    EXPECT_EQ(differences(found, world->volume), Texts());
    EXPECT_EQ(snapshotOf(found).find(HostileVolume::canary), std::string::npos);
}

// Last of all, about everything above.
TEST_F(Hostile, NothingOutsideAndNothingThatBlocksHasBeenOpened) {
    EXPECT_EQ(world->watch.opened(), Texts());
    // And the watch is awake.
    const std::string place = world->outside.hostPath("/bin");
    EXPECT_FALSE(std::filesystem::is_empty(place));
    EXPECT_FALSE(world->watch.opened().empty());
}

} // namespace
} // namespace veridane::test
