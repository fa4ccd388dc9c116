#include "coordination/StabilityLogger.h"
#include "support/VolumeTest.h"

#include <functional>
#include <future>

namespace veridane::test {
namespace {

namespace fs = std::filesystem;

class Log : public VolumeTest {
protected:
    std::string directory() const { return volume.hostPath("/data/Veridane"); }
    std::string file() const { return directory() + "/stability.log"; }
};

TEST_F(Log, ALineForEachEventInTheirOrderAndThoseOfTheNextRunBehind) {
    for (const std::string run : {"1", "2"}) {
        std::int64_t seconds = 0;
        StabilityLogger log(directory(),
                            [&] { return Date(std::chrono::milliseconds(1999 * seconds++)); });
        log.log("first", {{"vendor", "Acme\nGmbH = \r\"A\" ä"}, {"a b", run}, {"Z", ""}});
        log.log("second", {});
    }
    std::string expected;
    for (const std::string run : {"1", "2"})
        expected += "[1970-01-01T00:00:00Z] event=first Z= a b=" + run +
                    " vendor=Acme GmbH = \r\"A\" ä\n[1970-01-01T00:00:01Z] event=second \n";
    EXPECT_EQ(textOf(file()), expected);
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
