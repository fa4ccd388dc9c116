#include "platform/WalkVisitor.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace veridane {
namespace {

using namespace test;

// Wants the content of files until a folder has `enough` marked ones, and marks them all.
class Marker : public WalkVisitor {
public:
    explicit Marker(std::size_t enough) : m_enough(enough) {}

    Next visit(const WalkEntry& entry) override {
        marked += entry.tag;
        return Next::descend;
    }
    [[nodiscard]] WalkDetail detail(std::size_t tagged) const override {
        return tagged < m_enough ? WalkDetail::classifying : WalkDetail::sizes;
    }
    std::uint8_t classify(const FileHead&) override { return 1; }

    int marked = 0;

private:
    std::size_t m_enough;
};

TEST(WalkLimits, NoFileIsMissedForWantOfDescriptorsAtAnyDepth) {
    VolumeBuilder volume;
    constexpr int levels = 40;
    std::string path = "/r";
    for (int i = 0; i < levels; ++i)
        volume.file((path += "/d") + "/file", "content");
    const FileSystem files = volume.files();

    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const int firstFree = ::dup(STDERR_FILENO);
    ::close(firstFree);
    for (rlim_t spare = 6; spare < 34; ++spare) {
        const rlimit few{static_cast<rlim_t>(firstFree) + spare, before.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
        Marker marker(SIZE_MAX);
        const bool walked = files.walk(Path("/r"), marker);
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
        EXPECT_TRUE(walked);
        EXPECT_EQ(marker.marked, levels) << spare;
    }
}

TEST(WalkLimits, AFolderIsReadNoFurtherThanTheVisitorWants) {
    VolumeBuilder volume;
    for (int i = 0; i < 100; ++i)
        volume.file("/r/" + std::to_string(i), "content");
    Marker marker(7);
    volume.files().walk(Path("/r"), marker);
    EXPECT_EQ(marker.marked, 7);
}

TEST(WalkLimits, APathOfNothingButDetoursLeadsNowhereSoon) {
    VolumeBuilder volume;
    std::string detours;
    std::string deep = "/r";
    for (int i = 0; i < 600; ++i) {
        deep += "/d";
        detours += "../d/";
    }
    volume.file(deep + "/file", "").link(deep + "/0", detours + "file");
    for (int i = 1; i < 30; ++i)
        volume.link(deep + "/" + std::to_string(i), detours + std::to_string(i - 1));
    const FileSystem files = volume.files();
    EXPECT_TRUE(files.exists(Path(deep + "/file")));
    EXPECT_FALSE(files.exists(Path(deep + "/29")));
    EXPECT_FALSE(files.exists(Path(deep) / (std::string(1'000'000, '.') + "/file")));
}

} // namespace
} // namespace veridane
