#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;

const std::string notLiteral = "not a literal";

std::string literalValue(const std::string& literals) {
    static const std::regex literal(R"re("((?:[^"\\\n]|\\.)*)")re");
    std::string value;
    for (std::sregex_iterator match(literals.begin(), literals.end(), literal), end; match != end;
         ++match)
        value += (*match)[1];
    return nlohmann::json::parse('"' + value + '"'); // the escapes that texts need are the same
}

/// The texts that a source looks up.
std::set<std::string> textsInUse(const std::string& source) {
    // Comments and other literals are matched too, so that nothing inside them is taken for a call.
    static const std::regex token(R"re(//[^\n]*|/\*[^*]*\*+(?:[^/*][^*]*\*+)*/)re"
                                  R"re(|\blocalized\(\s*((?:"(?:[^"\\\n]|\\.)*"\s*)*)([,)])?)re"
                                  R"re(|"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)')re",
                                  std::regex::optimize);
    std::set<std::string> texts;
    for (std::sregex_iterator match(source.begin(), source.end(), token), end; match != end;
         ++match) {
        if (!match->str().starts_with("localized"))
            continue;
        const bool isLiteral = (*match)[1].length() > 0 && (*match)[2].matched;
        texts.insert(isLiteral ? literalValue((*match)[1]) : notLiteral);
    }
    return texts;
}

/// What is used and has no entry, and what has an entry and is not used.
std::vector<std::string> mismatches(const std::set<std::string>& texts,
                                    const nlohmann::json& table) {
    std::vector<std::string> found;
    for (const std::string& text : texts)
        if (!table.contains(text) || !table[text].is_string())
            found.push_back("no entry: " + text);
    for (const auto& [text, translation] : table.items())
        if (!texts.contains(text))
            found.push_back("not used: " + text);
    return found;
}

std::string contentOf(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(LanguageTable, HasOneEntryForEachTextInUseAndNoOther) {
    const fs::path root = VERIDANE_SOURCE_DIR;
    std::set<std::string> texts;
    for (const auto& entry : fs::recursive_directory_iterator(root / "src"))
        if (entry.is_regular_file() && entry.path().stem() != "Language") // the lookup itself
            texts.merge(textsInUse(contentOf(entry.path())));
    const auto table = nlohmann::json::parse(contentOf(root / "resources/languages/en.json"));
    EXPECT_EQ(mismatches(texts, table), std::vector<std::string>());
}

TEST(LanguageTable, AMissingAndAnUnusedEntryAreFound) {
    const std::string source = "// localized(\"in a comment\")\n"
                               "const char* s = \"localized(\\\"in a text\\\")\"; char c = '\"';\n"
                               "unlocalized(\"another function\"); /* localized(\"no\") */\n"
                               "f(localized(\"Größe \\\"1\\\" \"\n    \"von %@\", g(2)));\n"
                               "localized(\"Nativ\"); localized(name); localized(\"a\" + b);";
    EXPECT_EQ(textsInUse(source),
              (std::set<std::string>{"Größe \"1\" von %@", "Nativ", notLiteral}));
    const nlohmann::json table = {{"Nativ", "Native"}, {"Fertig", "Done"}};
    EXPECT_EQ(mismatches(textsInUse(source), table),
              (std::vector<std::string>{"no entry: Größe \"1\" von %@", "no entry: " + notLiteral,
                                        "not used: Fertig"}));
}

} // namespace
