#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veridane::test {
namespace {

/// All paths of one to `levels` of the names.
std::vector<std::string> pathsOf(const std::vector<std::string>& names, int levels) {
    std::vector<std::string> paths{""};
    for (std::size_t first = 0; levels > 0; --levels) {
        const std::size_t end = paths.size();
        for (; first < end; ++first) {
            for (const std::string& name : names)
                paths.push_back(paths[first] + '/' + name);
        }
    }
    paths.erase(paths.begin());
    return paths;
}

// A path without links is looked up in one step. One with a "." in front is walked name by name.
TEST(PathLookup, TheShortWayLeadsWhereTheLongOneLeads) {
    VolumeBuilder volume;
    volume.file("/folder/file", "12345")
        .file("/folder/inner/file", "123")
        .link("/near", "folder")
        .link("/folder/inner/far", "/folder")
        .link("/folder/up", "../near/inner")
        .link("/folder/inner/loop", "loop")
        .link("/folder/dangling", "/nowhere/file");
    const FileSystem files = volume.files();
    int found = 0;
    for (const std::string& text :
         pathsOf({"folder", "inner", "near", "far", "up", "loop", "dangling", "file", ".."}, 4)) {
        const Path straight(text), stepwise("/." + text);
        SCOPED_TRACE(text);
        const auto values = files.resourceValues(straight);
        const auto expected = files.resourceValues(stepwise);
        ASSERT_EQ(values.has_value(), expected.has_value());
        EXPECT_TRUE(!values || (values->type == expected->type && values->size == expected->size));
        ASSERT_EQ(files.exists(straight), files.exists(stepwise));
        if (!files.exists(straight))
            continue;
        ++found;
        EXPECT_EQ(files.resolvingLinks(straight), files.resolvingLinks(stepwise));
    }
    EXPECT_GT(found, 100);
}

} // namespace
} // namespace veridane::test
