#include "platform/FileSystem.h"

#include "platform/WalkVisitor.h"
#include "support/ProcessLimit.h"
#include "support/VolumeTest.h"

#include <sys/stat.h>
#include <unistd.h>

#include <tuple>

namespace veridane::test {
namespace {

/// Notes what it meets, and tags the first file of three bytes in each folder.
struct Recorder : WalkVisitor {
    explicit Recorder(WalkDetail wanted = WalkDetail::classifying) : m_wanted(wanted) {}

    Next visit(const WalkEntry& entry) override {
        seen.emplace_back(entry.relativePath);
        tags += entry.tag;
        if (entry.name == "stop")
            stop.request_stop();
        return entry.name == "closed" ? Next::skipDescendants : Next::descend;
    }
    [[nodiscard]] WalkDetail detail(std::size_t tagged) const override {
        return tagged == 0 ? m_wanted : WalkDetail::sizes;
    }
    std::uint8_t classify(const FileHead& file) override { return file.first().size() == 3; }

    WalkDetail m_wanted;
    Texts seen;
    int tags = 0;
    std::stop_source stop;
};

using Files = VolumeTest;

TEST_F(Files, PathsAreFollowedInsideTheRootAlone) {
    volume.file("/etc/inside", "yes").folder("/deep/er").file("/deep/file", "");
    volume.link("/absolute", "/etc/inside").link("/deep/up", "../../../../etc/inside");
    volume.link("/folder", "deep/er").link("/deep/er/nowhere", "/no/such/place");
    volume.link("/deep/root", "/").link("/empty-handed", "/etc/gone").link("/hop0", "/etc/inside");
    for (int i = 1; i <= 40; ++i)
        volume.link("/hop" + std::to_string(i), "hop" + std::to_string(i - 1));
    const FileSystem files = volume.files();
    const std::tuple<const char*, bool, const char*> cases[] = {
        {"/absolute", true, "/etc/inside"},
        {"/deep/up", true, "/etc/inside"},
        {"/folder/../file", true, "/deep/file"},
        {"/../../etc/./inside", true, "/etc/inside"},
        {"/deep/root", true, "/"},
        {"/deep/root/etc/inside", true, "/etc/inside"},
        {"/hop39", true, "/etc/inside"},
        {"/hop40", false, "/hop40"},
        {"/empty-handed", false, "/etc/gone"},
        {"/folder/nowhere", false, "/deep/er/nowhere"},
        {"/etc/inside/below", false, "/etc/inside/below"},
    };
    for (const auto& [path, exists, resolved] : cases) {
        EXPECT_EQ(files.exists(Path(path)), exists) << path;
        EXPECT_EQ(files.resolvingLinks(Path(path)), Path(resolved)) << path;
    }
    EXPECT_FALSE(files.exists(Path(std::string_view("/etc\0/inside", 12))));
}

// A path without links is looked up in one step. One with a "." in front is walked name by name.
TEST_F(Files, TheShortWayToAPathLeadsWhereTheLongOneLeads) {
    volume.file("/folder/file", "12345").file("/folder/inner/file", "123").link("/near", "folder");
    volume.link("/folder/inner/far", "/folder").link("/folder/up", "../near/inner");
    volume.link("/folder/inner/loop", "loop");
    const FileSystem files = volume.files();
    const auto seen = [&files](const std::string& text) { // what is there, and where
        const Path path(text);
        const auto values = files.resourceValues(path);
        return std::tuple(values ? values->type : EntryType::other, values ? values->size : -1,
                          files.exists(path) ? files.resolvingLinks(path) : Path());
    };
    Texts paths{""};
    for (std::size_t i = 0; i < 1 + 8 + 64 + 512; ++i) // all paths of up to four of the names
        for (const char* name : {"folder", "inner", "near", "far", "up", "loop", "file", ".."})
            paths.push_back(paths[i] + '/' + name);
    for (const std::string& path : paths)
        EXPECT_EQ(seen(path), seen("/." + path)) << path;
}

TEST_F(Files, ListingsAreSortedByBytesAndKeepWhatIsNoText) {
    volume.file("/d/b", "").fifo("/d/B").file("/d/\xFF", "").folder("/d/ä").file("/d/.h", "");
    volume.link("/d/a", "/d");
    using enum EntryType;
    const std::vector<DirectoryEntry> expected{{"B", other},
                                               {"a", symbolicLink},
                                               {"b", regularFile},
                                               {"ä", directory},
                                               {"\xFF", regularFile}};
    EXPECT_EQ(volume.files().list(Path("/d/a")), expected);
    EXPECT_EQ(volume.files().list(Path("/d/b")), std::nullopt);
}

TEST_F(Files, OnlyRegularFilesWithinTheLimitAreReadWhole) {
    volume.file("/file", "12345").link("/link", "file").fifo("/fifo").folder("/folder");
    const FileSystem files = volume.files();
    EXPECT_EQ(files.readWhole(Path("/link"), 5), Bytes({'1', '2', '3', '4', '5'}));
    EXPECT_EQ(files.readWhole(Path("/file"), 4), std::nullopt);
    for (const char* path : {"/fifo", "/folder", "/missing"})
        EXPECT_EQ(files.readWhole(Path(path), 100), std::nullopt) << path;
    EXPECT_EQ(FileSystem("/dev").readWhole(Path("/zero"), 100), std::nullopt);
}

TEST_F(Files, AWalkEndsInTheMiddleOnceAStopIsRequested) {
    volume.file("/r/stop/x", "").file("/r/z", "");
    Recorder recorder;
    const FileSystem files = volume.files().stoppingAt(recorder.stop.get_token());
    EXPECT_TRUE(files.walk(Path("/r"), recorder));
    EXPECT_EQ(recorder.seen, Texts{"stop"});
}

TEST_F(Files, AWalkMeetsAFolderBeforeItsContentsAndFollowsAndReadsNoMoreThanItShould) {
    volume.file("/r/a.txt", "abc").file("/r/a/z", "abc").file("/r/a/b/c", "").file("/r/b", "abc");
    volume.file("/r/closed/x", "abc").link("/r/loop", ".").file("/r/.hidden/x", "abc");
    volume.link("/to-r", "r");
    for (const auto detail : {WalkDetail::names, WalkDetail::sizes, WalkDetail::classifying}) {
        Recorder recorder(detail);
        EXPECT_TRUE(volume.files().walk(Path("/to-r"), recorder));
        const Texts expected{"a", "a/b", "a/b/c", "a/z", "a.txt", "b", "closed", "loop"};
        EXPECT_EQ(recorder.seen, expected);
        EXPECT_EQ(recorder.tags, detail == WalkDetail::classifying ? 2 : 0);
    }
    Recorder recorder;
    EXPECT_FALSE(volume.files().walk(Path("/r/b"), recorder));
}

TEST_F(Files, FiveThousandLevelsAreWalkedAndLeftWithFewDescriptors) {
    std::string deepest = "/./r";
    volume.file("/r/bottom", "abc");
    for (int i = 0; i < 5000; ++i) {
        deepest += "/d";
        volume.folder("/outer");
        std::filesystem::rename(volume.hostPath("/r"), volume.hostPath("/outer/d"));
        std::filesystem::rename(volume.hostPath("/outer"), volume.hostPath("/r"));
    }
    volume.file("/r/z/end", "abc");

    Recorder recorder;
    const ProcessLimit few(RLIMIT_NOFILE, 64);
    volume.files().walk(Path("/r"), recorder);
    EXPECT_EQ(recorder.seen.size(), 5003U);
    EXPECT_EQ(recorder.tags, 2);
    EXPECT_EQ(recorder.seen.back(), "z/end"); // found its way back up

    const FileSystem files = volume.files();
    errno = EIO; // of anything before
    EXPECT_FALSE(files.exists(Path(deepest)));
    EXPECT_EQ(files.trouble(), std::nullopt);
}

TEST_F(Files, ForWantOfDescriptorsNothingBreaksAndWithAFewNoFileIsMissedAtAnyDepth) {
    std::string path = "/r";
    for (int i = 0; i < 40; ++i)
        volume.file((path += "/d") + "/file", "abc");
    const FileSystem files = volume.files();
    Recorder unhindered; // a sanitizer looks at each type once, through a pipe
    EXPECT_TRUE(files.walk(Path("/r"), unhindered));
    const auto firstFree = static_cast<rlim_t>(Descriptor(::dup(STDERR_FILENO)).get());
    for (rlim_t spare = 0; spare < 34; ++spare) {
        Recorder recorder;
        const ProcessLimit few(RLIMIT_NOFILE, firstFree + spare);
        const bool walked = files.walk(Path("/r"), recorder);
        EXPECT_TRUE(spare < 6 || (walked && recorder.tags == 40)) << spare << recorder.tags;
    }
}

TEST_F(Files, APathOfNothingButDetoursLeadsNowhereSoon) {
    std::string detours, deep = "/r";
    for (int i = 0; i < 600; ++i) {
        deep += "/d";
        detours += "../d/";
    }
    volume.file(deep + "/file", "").link(deep + "/0", detours + "file");
    for (int i = 1; i < 30; ++i)
        volume.link(deep + '/' + std::to_string(i), detours + std::to_string(i - 1));
    const FileSystem files = volume.files();
    EXPECT_TRUE(files.exists(Path(deep + "/file")));
    EXPECT_FALSE(files.exists(Path(deep + "/29")));
    EXPECT_FALSE(files.exists(Path(deep) / (std::string(1'000'000, '.') + "/file")));
}

TEST_F(Files, WithoutItsLinksAPathMayBeLongerThanTheSystemTakes) {
    const std::string name(250, 'd');
    std::string half;
    for (int i = 0; i < 10; ++i)
        half += name + '/';
    volume.file("/part", "abc").tower("/r", 20, name, "/part");
    volume.link("/r/" + half + "half", half).link("/short", "/r/" + half + "half/part-20");
    const Path resolved = volume.files().resolvingLinks(Path("/short"));
    EXPECT_EQ(resolved, Path("/r/" + half + half + "part-20"));
    EXPECT_TRUE(volume.files().open(resolved));
}

TEST_F(Files, AScanLeavesNoAccessTimes) {
    volume.file("/r/file", "abc").modified("/r/file", 1000); // accessed then as well
    Recorder recorder;
    volume.files().walk(Path("/r"), recorder);
    EXPECT_TRUE(volume.files().readWhole(Path("/r/file"), 100));
    struct stat status {};
    ASSERT_EQ(::stat(volume.hostPath("/r/file").c_str(), &status), 0);
    EXPECT_EQ(status.st_atim.tv_sec, 1000);
}

} // namespace
} // namespace veridane::test
