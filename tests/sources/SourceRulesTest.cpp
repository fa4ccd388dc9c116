#include "support/VolumeTest.h"

#include <nlohmann/json.hpp>

#include <map>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;
using namespace veridane::test;

const fs::path root = VERIDANE_SOURCE_DIR;
const std::map<std::string, int, std::less<>> layers = {
    {"platform", 0}, {"model", 1},        {"scan", 2}, {"updates", 2},
    {"reports", 2},  {"coordination", 3}, {"ui", 4},   {"cli", 4}};

std::vector<std::smatch> matches(const std::string& text, const std::regex& pattern) {
    return {std::sregex_iterator(text.begin(), text.end(), pattern), {}};
}

/// The includes in a source of `folder` that the layers forbid.
Texts forbiddenIncludes(const std::string& folder, const std::string& source) {
    static const std::regex include(R"re((?:^|\n)[ \t]*#[ \t]*include[ \t]*([<"])([^>"]*))re");
    Texts forbidden;
    for (const std::smatch& match : matches(source, include)) {
        const std::string name = match[2], target = name.substr(0, name.find('/'));
        const auto from = layers.find(folder), to = layers.find(target);
        const bool isKnown = from != layers.end() && to != layers.end();
        const bool isBelow = isKnown && (target == folder || to->second < from->second);
        if (match[1] == "<" ? folder != "ui" && name.starts_with('Q') : !isBelow)
            forbidden.push_back(name);
    }
    return forbidden;
}

/// The texts that a source looks up.
std::set<std::string> textsInUse(const std::string& source) {
    static const std::regex call(R"re(\blocalized\(\s*((?:"(?:[^"\\\n]|\\.)*"\s*)*)([,)])?)re");
    static const std::regex literal(R"re("((?:[^"\\\n]|\\.)*)")re");
    std::set<std::string> texts;
    for (const std::smatch& match : matches(source, call)) {
        std::string text = match[2].matched ? "" : "not a literal";
        const std::string literals = match[1];
        for (const std::smatch& part : matches(literals, literal))
            text += part[1];
        texts.insert(nlohmann::json::parse('"' + text + '"')); // escapes are the same there
    }
    return texts;
}

/// What is used and has no entry, and what has an entry and is not used.
Texts mismatches(const std::set<std::string>& texts, const nlohmann::json& table) {
    Texts found;
    for (const std::string& text : texts)
        if (!table.contains(text) || !table[text].is_string())
            found.push_back("no entry: " + text);
    for (const auto& [text, translation] : table.items())
        if (!texts.contains(text))
            found.push_back("not used: " + text);
    return found;
}

TEST(SourceRules, IncludesPointDownAndEachTextInUseHasOneEntryInTheLanguageTable) {
    EXPECT_EQ(forbiddenIncludes("scan", "#include \"updates/A.h\"\n # include <QString>\n"),
              (Texts{"updates/A.h", "QString"}));
    std::set<std::string> texts;
    for (const auto& entry : fs::recursive_directory_iterator(root / "src")) {
        const fs::path path = entry.path().lexically_relative(root / "src");
        const std::string source = entry.is_regular_file() ? textOf(entry.path()) : "";
        EXPECT_EQ(forbiddenIncludes(path.begin()->string(), source), Texts()) << path;
        if (path.stem() != "Language") // the lookup itself
            texts.merge(textsInUse(source));
    }
    const auto table = nlohmann::json::parse(textOf(root / "resources/languages/en.json"));
    EXPECT_EQ(mismatches(texts, table), Texts());
}

TEST(SourceRules, EverySymbolOfTheWindowHasADrawing) {
    static const std::regex symbol(R"re("((?!org\.)[a-z]+(?:\.[a-z0-9]+)+)")re");
    const fs::path drawings = root / "resources/symbols";
    const std::string fromPackage = textOf(drawings / "package.txt");
    for (const auto& entry : fs::directory_iterator(root / "src/ui")) {
        const std::string source = textOf(entry.path());
        for (const std::smatch& match : matches(source, symbol)) {
            const std::string name = match[1];
            EXPECT_TRUE(fs::exists(drawings / (name + ".svg")) ||
                        fromPackage.find("\n" + name + " ") != std::string::npos)
                << name;
        }
    }
}

} // namespace
