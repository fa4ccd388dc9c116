#include "cli/Arguments.h"
#include "coordination/MakerSite.h"
#include "support/VolumeTest.h"
#include "ui/LaunchArguments.h"

#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

namespace veridane {
namespace {

namespace fs = std::filesystem;
using namespace test;
using Words = std::set<std::string>;

const fs::path source = VERIDANE_SOURCE_DIR;
const fs::path folder = source / "resources/install";

/// What both programs can be asked, and where the completions for each of the shells tell it.
const struct Command {
    std::string line;        // what is typed so far
    std::string zshFunction; // with the options of this command
    std::string fishGuard;   // and the condition for them, besides that for both commands
} commands[] = {
    {"veridane", "_veridane_window", ""},
    {"veridane-cli", "_veridane_cli", ""},
    {"veridane-cli scan", "_veridane_scan", "$scan"},
    {"veridane-cli inspect", "_veridane_inspect", "$inspect"},
};

std::string programOf(const Command& command) {
    return command.line.substr(0, command.line.find(' '));
}

/// What a command line is answered with, if it is by text alone.
std::string answerTo(const Command& command, const Texts& arguments) {
    Texts all(arguments);
    const auto blank = command.line.find(' ');
    if (programOf(command) == "veridane") {
        const auto parsed = ui::parseLaunchArguments(all);
        const auto* answer = std::get_if<ui::LaunchAnswer>(&parsed);
        return answer ? answer->text : "";
    }
    if (blank != std::string::npos)
        all.insert(all.begin(), command.line.substr(blank + 1));
    const auto parsed = cli::parseArguments(all);
    const auto* answer = std::get_if<cli::Answer>(&parsed);
    return answer ? answer->text : "";
}

/// The first group of all matches.
Words wordsIn(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    Words words;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
        words.insert((*match)[1]);
    return words;
}

Words optionsOf(const Command& command) {
    return wordsIn(answerTo(command, {"--help"}), R"((?:^|[\s,("])(--?[a-z][a-z-]*))");
}

/// The values that an option takes, as the program lists them to who gives another one.
Words valuesOf(const Command& command, const std::string& option) {
    const std::string answer = answerTo(command, {option, "?"});
    const auto list = answer.find(" is none of ");
    return list == std::string::npos ? Words()
                                     : wordsIn(answer.substr(list + 11), "[ ,]([a-z-]+)(?=[ ,])");
}

std::string page(const std::string& path) {
    return std::regex_replace(textOf(folder / "man" / path), std::regex(R"(\\-)"), "-");
}

std::string zshPart(const Command& command) {
    const std::string text = textOf(folder / "completions/_veridane");
    const auto begin = text.find("\n" + command.zshFunction + "() {");
    return begin == std::string::npos ? "" : text.substr(begin, text.find("\n}", begin) - begin);
}

std::string fishPart(const Command& command) {
    std::istringstream text(textOf(folder / "completions" / (programOf(command) + ".fish")));
    const bool isSubcommand = !command.fishGuard.empty();
    std::string part;
    for (std::string line; std::getline(text, line);) {
        const bool isOption = line.starts_with("complete -c " + programOf(command) + " ");
        const auto guard = wordsIn(line, R"( -n (\S+))");
        if (isOption && (guard.empty() || (isSubcommand && (guard.contains(command.fishGuard) ||
                                                            guard.contains("$both")))))
            part += line + "\n";
    }
    return part;
}

Words fishOptions(const Command& command) {
    Words options;
    for (const std::string& name : wordsIn(fishPart(command), R"( -l ([a-z-]+))"))
        options.insert("--" + name);
    for (const std::string& letter : wordsIn(fishPart(command), R"( -s ([a-z])\b)"))
        options.insert("-" + letter);
    return options;
}

/// What the bash offers behind the words on a line.
Words bashOffers(const std::string& line, const std::string& beginning) {
    const std::string script = ". '" + (folder / "completions/veridane.bash").string() +
                               "'; COMP_WORDS=(" + line + " '" + beginning +
                               "'); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _veridane " + line +
                               "; printf '%s\\n' \"${COMPREPLY[@]}\"";
    const std::string file = (fs::path(::testing::TempDir()) / "offers.bash").string();
    std::ofstream(file) << script;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(
        ::popen(("bash --norc '" + file + "'").c_str(), "r"), ::pclose);
    std::string text;
    std::array<char, 256> piece{};
    while (pipe && std::fgets(piece.data(), piece.size(), pipe.get()))
        text += piece.data();
    fs::remove(file);
    return wordsIn(text, R"((\S+))");
}

TEST(CompletionsAndPages, NameTheOptionsOfEachCommandAndNoOthers) {
    std::map<std::string, Words> ofProgram;
    for (const Command& command : commands) {
        SCOPED_TRACE(command.line);
        const Words options = optionsOf(command);
        EXPECT_TRUE(options.contains("--version"));
        EXPECT_EQ(bashOffers(command.line, "-"), options) << "bash";
        EXPECT_EQ(wordsIn(zshPart(command), "['{,*)](--?[a-z][a-z-]*)"), options) << "zsh";
        EXPECT_EQ(fishOptions(command), options) << "fish";
        ofProgram[programOf(command)].insert(options.begin(), options.end());
    }
    for (const auto& [program, options] : ofProgram) {
        for (const char* language : {"", "de/"}) {
            const std::string file = language + program + ".1.in";
            EXPECT_EQ(wordsIn(page(file), R"((?:^|[\s"])(--?[a-z][a-z-]*))"), options) << file;
        }
    }
}

TEST(CompletionsAndPages, NameTheValuesThatTheOptionsTake) {
    int lists = 0;
    for (const Command& command : commands) {
        for (const std::string& option : optionsOf(command)) {
            SCOPED_TRACE(command.line + " " + option);
            const Words values = valuesOf(command, option);
            if (values.empty())
                continue;
            ++lists;
            EXPECT_EQ(bashOffers(command.line + " " + option, ""), values);
            const std::string file = programOf(command) + ".1.in";
            for (const std::string& text :
                 {zshPart(command), textOf(folder / "completions" / (programOf(command) + ".fish")),
                  page(file), page("de/" + file)}) {
                for (const std::string& value : values)
                    EXPECT_TRUE(wordsIn(text, R"((?:^|[\s(':])([a-z-]+))").contains(value))
                        << value << " in\n"
                        << text;
            }
        }
    }
    EXPECT_EQ(lists, 7); // formats and language of both commands, and three of the scan
}

TEST(WhatIsInstalled, NamesTheMakersSiteAndTheWindowsAsTheProgramsDo) {
    const auto contains = [](const char* file, const std::string& text) {
        return textOf(source / file).find(text) != std::string::npos;
    };
    EXPECT_TRUE(contains("CMakeLists.txt", "HOMEPAGE_URL \"" + MakerSite::root() + '"'));
    for (const char* file : {"cmake/Package.cmake", "resources/install/changelog.Debian.in",
                             "resources/install/copyright"})
        EXPECT_TRUE(contains(file, "<" + std::string(MakerSite::contactAddress) + ">")) << file;
    const std::string id = "com.mirefold.Veridane";
    EXPECT_TRUE(fs::exists(folder / (id + ".desktop")));
    EXPECT_TRUE(contains("src/ui/VeridaneApp.cpp", "(\"" + id + "\")"));
}

} // namespace
} // namespace veridane
