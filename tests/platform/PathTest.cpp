#include "platform/Path.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

TEST(Path, PartsOfANameAreThoseThatAMacSees) {
    const struct {
        const char* path;
        const char* name;
        const char* stem;
        const char* extension;
        const char* parent;
    } cases[] = {
        {"/Applications/Foo Bar.app/", "Foo Bar.app", "Foo Bar", "app", "/Applications"},
        {"/a//b.tar.gz", "b.tar.gz", "b.tar", "gz", "/a"},
        {"/.hidden", ".hidden", ".hidden", "", "/"},
        {"/dot.", "dot.", "dot", "", "/"},
        {"relative", "relative", "relative", "", "/"},
        {"/", "/", "/", "", "/"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        const Path path(c.path);
        EXPECT_EQ(path.name(), c.name);
        EXPECT_EQ(path.stem(), c.stem);
        EXPECT_EQ(path.extension(), c.extension);
        EXPECT_EQ(path.parent(), Path(c.parent));
    }
}

TEST(Path, ComponentsAreAppendedAndNeverJoined) {
    EXPECT_EQ((Path("/A.app") / "/bin/sh").bytes(), "/A.app/bin/sh");
    EXPECT_EQ((Path() / "a//b/").bytes(), "/a/b");
    EXPECT_EQ((Path("/a") / "").bytes(), "/a");
    EXPECT_EQ(Path("/caf\xE9").text(), "/caf\uFFFD");
}

} // namespace
} // namespace veridane
