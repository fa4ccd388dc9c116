#include "coordination/DataDirectory.h"
#include "coordination/ScanCacheStore.h"
#include "coordination/StabilityLogger.h"
#include "model/JsonForms.h"
#include "support/ItemSamples.h"
#include "support/VolumeTest.h"

#include <sys/file.h>

#include <cstdlib>
#include <future>
#include <regex>

namespace veridane::test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using Items = std::vector<ScanItem>;

const std::string cache = "/data/Veridane/scan-cache-v1.json";
const Date date = parseISO8601("2027-03-01T09:30:00Z").value();

class Cache : public VolumeTest {
protected:
    std::string at(std::string_view path) const { return volume.hostPath(path); }
    std::string directory() const { return at("/data/Veridane"); }

    /// What a program prints that keeps these results one after the other, and then ends.
    Texts save(const std::vector<Items>& results) const {
        Texts printed;
        ScanCacheStore store(directory(), 1,
                             [&](const std::string& line) { printed.push_back(line); });
        for (const Items& items : results)
            store.save(items, {.includeSystemApps = true}, date);
        return printed;
    }
    auto load(std::int64_t version = 1) const {
        return ScanCacheStore(directory(), version).load();
    }
};

TEST_F(Cache, TheLastSaveComesBackWithoutWhatWasCheckedSince) {
    EXPECT_EQ(load(), std::nullopt);
    Items items = {sampleItem("New", CompatibilityStatus::native)};
    items[0].updateResult = UpdateCheckResult::failed("x");
    EXPECT_EQ(save({{ScanItem()}, {}, items}), Texts());
    items[0].updateResult = {};
    EXPECT_EQ(load(), (CachedScanSnapshot{1, date, {.includeSystemApps = true}, items}));
    EXPECT_EQ(fs::status(at("/data")).permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(at(cache)).permissions(), fs::perms(0600));

    EXPECT_EQ(load(0), std::nullopt);
    EXPECT_EQ(load(2), std::nullopt);

    ScanCacheStore nowhere(std::nullopt);
    nowhere.save({}, {}, date);
    EXPECT_EQ(nowhere.load(), std::nullopt);
}

TEST_F(Cache, WhateverStandsInItsPlaceIsNoResultAndIsReplacedByTheNext) {
    const std::string good = json::snapshotText({});
    const std::function<void()> worlds[] = {
        [&] { volume.file(cache, ""); },
        [&] { volume.file(cache, good.substr(0, good.size() - 1)); },
        [&] { volume.file(cache, Bytes(good.begin(), good.end()), 200 << 20); },
        [&] { volume.fifo(cache); },
        [&] { volume.link(cache, "/dev/zero"); },
        [&] { volume.file("/kept", "kept").link(cache, at("/kept")); },
    };
    for (const auto& make : worlds) {
        fs::remove(at(cache));
        make();
        EXPECT_EQ(load(), std::nullopt) << &make - worlds;
        EXPECT_EQ(save({{}}), Texts());
        EXPECT_TRUE(load() && fs::symlink_status(at(cache)).type() == fs::file_type::regular);
    }
    EXPECT_EQ(textOf(at("/kept")), "kept");
}

TEST_F(Cache, AFailedSaveIsToldOnceAndLeavesWhatWasThere) {
    volume.folder(cache);
    const std::string line = "Scan-Cache konnte nicht gespeichert werden: ";
    EXPECT_EQ(save({{}, {}}), (Texts{line + "Is a directory", line + "Is a directory"}));
    EXPECT_EQ(load(), std::nullopt);
    EXPECT_EQ(std::distance(fs::directory_iterator(directory()), {}), 1);
    fs::remove_all(directory());
    volume.file("/data/Veridane", "in the way");
    ::testing::internal::CaptureStdout();
    ScanCacheStore(directory()).save({}, {}, date);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), line + "Not a directory\n");
    EXPECT_EQ(textOf(directory()), "in the way");
}

TEST_F(Cache, TemporaryFilesOfKilledProgramsGoButNotThoseInUse) {
    const std::string abandoned = "/data/Veridane/.veridane-" + Uuid::random().text();
    const std::string used = "/data/Veridane/.veridane-" + Uuid::random().text();
    volume.file(abandoned, "half")
        .file(used, "half")
        .file("/data/Veridane/.veridane-notes", "mine");
    const Descriptor writer(::open(at(used).c_str(), O_WRONLY));
    ASSERT_EQ(::flock(writer.get(), LOCK_EX), 0);
    EXPECT_EQ(save({{}}), Texts());
    EXPECT_FALSE(fs::exists(at(abandoned)));
    EXPECT_TRUE(fs::exists(at(used)) && fs::exists(at("/data/Veridane/.veridane-notes")));
}

TEST_F(Cache, EachDiskHasADirectoryOfItsOwnHoweverItIsWritten) {
    ::setenv("XDG_DATA_HOME", at("/data").c_str(), 1);
    volume.folder("/disks/mac one").link("/link", "disks/mac one");
    const fs::path before = fs::current_path();
    fs::current_path(at("/disks"));
    const auto one = dataDirectory("mac one");
    for (const std::string& same : {at("/disks//mac one/"), at("/link"), "../link/."s})
        EXPECT_EQ(dataDirectory(same), one);
    EXPECT_EQ(dataDirectory("gone/../away/"), dataDirectory(at("/disks/away")));
    fs::current_path(before);

    EXPECT_TRUE(one.value().ends_with("%2Fdisks%2Fmac%20one")) << *one;
    EXPECT_EQ(fs::path(*one).parent_path(), directory() + "/Volumes");
    EXPECT_EQ(dataDirectory(), directory());
    EXPECT_EQ(fs::path(dataDirectory("/").value()).filename(), "%2F");
    EXPECT_NE(dataDirectory("/a/%2Fb"), dataDirectory("/a//b"));

    // Three starts put the cut before, within and behind an escape.
    const std::regex form("(?:a|%[0-9A-F]{2})+\\+[0-9a-f]{64}");
    for (std::string path : {"/a", "/aa", "/aaa"}) {
        for (int i = 0; i < 100; ++i)
            path += "ä";
        const std::string name = fs::path(dataDirectory(path).value()).filename();
        EXPECT_TRUE(std::regex_match(name, form) && name.size() <= 255) << name;
        EXPECT_NE(fs::path(dataDirectory(path + "a").value()).filename(), name);
    }
    ::unsetenv("XDG_DATA_HOME");
}

class Log : public VolumeTest {
protected:
    std::string directory() const { return volume.hostPath("/data/Veridane"); }
    std::string file() const { return directory() + "/stability.log"; }
};

TEST_F(Log, ALineForEachEventInTheirOrderAndThoseOfTheNextRunBehind) {
    for (int run = 0; run < 2; ++run) {
        std::int64_t seconds = 0;
        StabilityLogger log(directory(),
                            [&] { return Date(std::chrono::milliseconds(1999 * seconds++)); });
        log.log("first", {{"vendor", "Acme\nGmbH = \r\"A\" ä"}, {"a b", "c"}, {"Z", ""}});
        log.log("second", {});
    }
    const std::string lines = "[1970-01-01T00:00:00Z] event=first Z= a b=c vendor=Acme GmbH = "
                              "\r\"A\" ä\n[1970-01-01T00:00:01Z] event=second \n";
    EXPECT_EQ(textOf(file()), lines + lines);
    EXPECT_EQ(fs::status(file()).permissions(), fs::perms(0600));
}

TEST_F(Log, NothingIsLostAtTheEndAndADeletedFileComesBack) {
    std::promise<void> posted;
    int lines = 0;
    {
        StabilityLogger log(directory(), [&] {
            if (++lines == 1)
                posted.get_future().wait(); // whoever logs does not wait for the writing
            if (lines == 3)
                fs::remove(file());
            return Date();
        });
        for (const char* event : {"1", "2", "3", "4"})
            log.log(event, {});
        posted.set_value();
    }
    EXPECT_EQ(textOf(file()), "[1970-01-01T00:00:00Z] event=3 \n[1970-01-01T00:00:00Z] event=4 \n");
}

TEST_F(Log, WhatCannotBeWrittenIsLostWithoutATrace) {
    const std::string log = "/data/Veridane/stability.log";
    const std::function<void()> worlds[] = {
        [&] { volume.folder(log); },
        [&] { volume.fifo(log); },
        [&] { volume.link(log, "/dev/full"); },
        [&] { fs::remove_all(directory()), volume.file("/data/Veridane", "in the way"); },
    };
    for (const auto& make : worlds) {
        fs::remove(file());
        make();
        const auto before = fs::symlink_status(file()).type();
        StabilityLogger(directory()).log("event", {});
        EXPECT_EQ(fs::symlink_status(file()).type(), before) << &make - worlds;
    }
    StabilityLogger(std::nullopt).log("event", {});
}

} // namespace
} // namespace veridane::test
