#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>

namespace {

namespace fs = std::filesystem;

const std::map<std::string, int, std::less<>> layers = {
    {"platform", 0}, {"model", 1},        {"scan", 2}, {"updates", 2},
    {"reports", 2},  {"coordination", 3}, {"ui", 4},   {"cli", 4}};

/// The includes in a source of `folder` that the layers forbid.
std::vector<std::string> forbiddenIncludes(const std::string& folder, const std::string& source) {
    static const std::regex include(R"re((?:^|\n)[ \t]*#[ \t]*include[ \t]*([<"])([^>"]*))re");
    std::vector<std::string> forbidden;
    for (std::sregex_iterator match(source.begin(), source.end(), include), end; match != end;
         ++match) {
        const std::string name = (*match)[2];
        if ((*match)[1] == "<") {
            if (folder != "ui" && name.starts_with('Q'))
                forbidden.push_back(name);
            continue;
        }
        const std::string target = name.substr(0, name.find('/'));
        const auto from = layers.find(folder), to = layers.find(target);
        const bool isKnown = from != layers.end() && to != layers.end();
        if (!isKnown || (target != folder && to->second >= from->second))
            forbidden.push_back(name);
    }
    return forbidden;
}

TEST(IncludeDirection, PointsDownOnly) {
    const fs::path root = fs::path(VERIDANE_SOURCE_DIR) / "src";
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp")
            continue;
        std::ifstream file(entry.path());
        const std::string source(std::istreambuf_iterator<char>(file), {});
        const std::string folder = entry.path().lexically_relative(root).begin()->string();
        EXPECT_EQ(forbiddenIncludes(folder, source), std::vector<std::string>()) << entry.path();
        ++files;
    }
    EXPECT_GT(files, 0);
}

TEST(IncludeDirection, AForbiddenIncludeIsFound) {
    const std::string source = "#include \"model/A.h\"\n  # include \"scan/B.h\"\n"
                               "#include \"updates/C.h\"\n#include \"cli/D.h\"\n#include \"E.h\"\n"
                               "#include <QString>\n#include <string>\n";
    using Names = std::vector<std::string>;
    EXPECT_EQ(forbiddenIncludes("scan", source),
              (Names{"updates/C.h", "cli/D.h", "E.h", "QString"}));
    EXPECT_EQ(forbiddenIncludes("platform", source),
              (Names{"model/A.h", "scan/B.h", "updates/C.h", "cli/D.h", "E.h", "QString"}));
    EXPECT_EQ(forbiddenIncludes("ui", source), (Names{"cli/D.h", "E.h"}));
}

} // namespace
