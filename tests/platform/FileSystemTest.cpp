#include "platform/FileSystem.h"

#include "platform/WalkVisitor.h"
#include "support/VolumeBuilder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>

namespace veridane {
namespace {

using namespace test;
using Texts = std::vector<std::string>;

class Recorder : public WalkVisitor {
public:
    explicit Recorder(WalkDetail detail = WalkDetail::names) : m_detail(detail) {}

    Next visit(const WalkEntry& entry) override {
        seen.emplace_back(entry.relativePath);
        deepest = std::max(deepest, entry.level);
        tags += entry.tag;
        return entry.name == "closed" ? Next::skipDescendants : Next::descend;
    }
    [[nodiscard]] WalkDetail detail(std::size_t) const override { return m_detail; }
    std::uint8_t classify(const FileHead& file) override {
        return file.first().size() == 3 ? 1 : 0;
    }

    Texts seen;
    int deepest = 0;
    int tags = 0;

private:
    WalkDetail m_detail;
};

TEST(FileSystem, PathsAreFollowedInsideTheRootAlone) {
    VolumeBuilder volume;
    volume.file("/etc/inside", "yes").folder("/deep/er").file("/deep/file", "");
    volume.link("/absolute", "/etc/inside").link("/deep/up", "../../../../etc/inside");
    volume.link("/folder", "deep/er").link("/chain", "absolute").link("/a", "b").link("/b", "a");
    volume.link("/deep/root", "/").link("/empty-handed", "/etc/gone");
    for (int i = 0; i < 41; ++i)
        volume.link("/hop" + std::to_string(i),
                    i == 0 ? "/etc/inside" : "hop" + std::to_string(i - 1));
    const FileSystem files = volume.files();
    const struct {
        const char* path;
        bool exists;
        const char* resolved;
    } cases[] = {
        {"/absolute", true, "/etc/inside"},
        {"/deep/up", true, "/etc/inside"},
        {"/chain", true, "/etc/inside"},
        {"/folder/../file", true, "/deep/file"},
        {"/../../etc/./inside", true, "/etc/inside"},
        {"/deep/root", true, "/"},
        {"/deep/root/etc/inside", true, "/etc/inside"},
        {"/hop39", true, "/etc/inside"},
        {"/hop40", false, "/hop40"},
        {"/a", false, "/a"},
        {"/empty-handed", false, "/etc/gone"},
        {"/etc/inside/below", false, "/etc/inside/below"},
        {"/missing", false, "/missing"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(files.exists(Path(c.path)), c.exists);
        EXPECT_EQ(files.resolvingLinks(Path(c.path)), Path(c.resolved));
    }
    EXPECT_FALSE(files.exists(Path(std::string_view("/etc\0/inside", 12))));
}

TEST(FileSystem, ListingsAreSortedByBytesAndKeepWhatIsNoText) {
    VolumeBuilder volume;
    volume.file("/d/b", "").file("/d/B", "").file("/d/\xFF", "").folder("/d/ä").file("/d/.h", "");
    volume.link("/d/a", "/d");
    EXPECT_EQ(volume.files().list(Path("/d/a")),
              (std::vector<DirectoryEntry>{{"B", EntryType::regularFile},
                                           {"a", EntryType::symbolicLink},
                                           {"b", EntryType::regularFile},
                                           {"ä", EntryType::directory},
                                           {"\xFF", EntryType::regularFile}}));
    EXPECT_EQ(volume.files().list(Path("/d/b")), std::nullopt);
}

TEST(FileSystem, OnlyRegularFilesWithinTheLimitAreReadWhole) {
    VolumeBuilder volume;
    volume.file("/file", "12345").link("/link", "file").fifo("/fifo").folder("/folder");
    const FileSystem files = volume.files();
    EXPECT_EQ(files.readWhole(Path("/link"), 5), Bytes({'1', '2', '3', '4', '5'}));
    EXPECT_EQ(files.readWhole(Path("/file"), 4), std::nullopt);
    for (const char* path : {"/fifo", "/folder", "/missing"})
        EXPECT_EQ(files.readWhole(Path(path), 100), std::nullopt);
    EXPECT_EQ(FileSystem("/dev").readWhole(Path("/zero"), 100), std::nullopt);
}

TEST(FileSystem, AWalkMeetsAFolderBeforeItsContentsAndFollowsNoLink) {
    VolumeBuilder volume;
    volume.file("/r/a.txt", "abc").file("/r/a/z", "abc").file("/r/a/b/c", "").file("/r/b", "x");
    volume.file("/r/closed/x", "abc").link("/r/loop", ".").file("/r/.hidden/x", "abc");
    volume.link("/to-r", "r");
    for (const WalkDetail detail :
         {WalkDetail::names, WalkDetail::sizes, WalkDetail::classifying}) {
        Recorder recorder(detail);
        EXPECT_TRUE(volume.files().walk(Path("/to-r"), recorder));
        EXPECT_EQ(recorder.seen,
                  (Texts{"a", "a/b", "a/b/c", "a/z", "a.txt", "b", "closed", "loop"}));
        EXPECT_EQ(recorder.tags, detail == WalkDetail::classifying ? 2 : 0);
    }
    Recorder recorder;
    EXPECT_FALSE(volume.files().walk(Path("/r/b"), recorder));
}

TEST(FileSystem, FiveThousandLevelsAreWalkedAndLeftWithFewDescriptors) {
    constexpr int levels = 5000;
    VolumeBuilder volume;
    std::string deep = "/r";
    for (int i = 0; i < levels; ++i)
        deep += "/d";
    volume.file(deep + "/bottom", "abc").file("/r/z", "abc");

    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit few{64, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    Recorder recorder(WalkDetail::classifying);
    volume.files().walk(Path("/r"), recorder);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);

    EXPECT_EQ(recorder.deepest, levels + 1);
    EXPECT_EQ(recorder.tags, 2);
    EXPECT_EQ(recorder.seen.back(), "z"); // found its way back up
}

TEST(FileSystem, RunningOutOfDescriptorsLosesFoldersAndNothingElse) {
    VolumeBuilder volume;
    volume.file("/r/a/b/c", "abc").file("/r/z", "abc");
    const FileSystem files = volume.files();
    std::vector<Descriptor> hoard;
    for (int i = 0; i < 100'000; ++i) {
        Descriptor descriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC));
        if (!descriptor)
            break;
        hoard.push_back(std::move(descriptor));
    }
    EXPECT_FALSE(files.exists(Path("/r/z")));
    for (int spare = 1; spare <= 6; ++spare) {
        hoard.pop_back();
        Recorder recorder(WalkDetail::classifying);
        static_cast<void>(files.walk(Path("/r"), recorder));
        static_cast<void>(files.readWhole(Path("/r/z"), 100));
    }
    hoard.clear();
    Recorder recorder;
    EXPECT_TRUE(files.walk(Path("/r"), recorder));
    EXPECT_EQ(recorder.seen, (Texts{"a", "a/b", "a/b/c", "z"}));
}

TEST(FileSystem, AScanLeavesNoAccessTimes) {
    VolumeBuilder volume;
    volume.file("/r/file", "abc");
    const std::string path = volume.hostPath("/r/file");
    const timespec longAgo[2] = {{1000, 0}, {2000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), longAgo, 0), 0);
    Recorder recorder(WalkDetail::classifying);
    volume.files().walk(Path("/r"), recorder);
    EXPECT_TRUE(volume.files().readWhole(Path("/r/file"), 100));
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_atim.tv_sec, 1000);
}

} // namespace
} // namespace veridane
