#include "cli/Commands.h"

#include "platform/Language.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace veridane::cli {
namespace {

using namespace test;

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

class Commands : public ::testing::Test {
protected:
    ~Commands() override { setLanguage(Language::german); }

    // Runs a command on the volume, unless the arguments say otherwise.
    Outcome call(std::vector<std::string> arguments, bool stopped = false, bool terminal = false) {
        std::ostringstream out;
        std::ostringstream err;
        std::stop_source stop;
        if (stopped)
            stop.request_stop();
        const Console console{
            .out = out, .err = err, .coloursOut = terminal, .showsProgress = terminal};
        const int status = run(arguments, console, stop.get_token());
        return {status, out.str(), err.str()};
    }
    Outcome scan(std::vector<std::string> arguments, bool stopped = false, bool terminal = false) {
        arguments.insert(arguments.begin(), {"scan", "--volume", volume.root()});
        return call(std::move(arguments), stopped, terminal);
    }

    void addIntelApplication() {
        volume.bundle("/Applications/Näher.app")
            .identifier("com.example.naeher")
            .executable("x", {Slice::x86_64});
    }
    void addHalfNativeApplication() {
        volume.bundle("/Applications/Evil\x1b[31m.app")
            .executable("x", {Slice::arm64})
            .file("Contents/Helper", thinMachO(Slice::x86_64));
    }
    std::string fileText(const std::string& name) {
        std::ifstream file(volume.hostPath(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    VolumeBuilder volume;
};

std::size_t itemCount(const Outcome& outcome) {
    return nlohmann::json::parse(outcome.out).at("items").size();
}

TEST_F(Commands, AWrongCallIsToldInOneLine) {
    const std::vector<std::string> calls[] = {
        {},
        {"scam"},
        {"scan", "extra"},
        {"scan", "--format", "xml"},
        {"scan", "--language", "fr"},
        {"scan", "--include", "applications,toys"},
        {"scan", "--fail-on", "monday"},
        {"scan", "--volume", "/nowhere at all"},
        {"scan", "--volume", volume.root(), "--home", "/Users/gone"},
        {"scan", "--volume", volume.root(), "--home", "relative"},
        {"scan", "--volume", volume.root(), "-o", "/no/such/folder/file"},
        {"scan", "--volume", volume.root(), "-o", "/dev/full"},
        {"inspect"},
        {"inspect", "--format", "csv", "/"},
    };
    for (const auto& arguments : calls) {
        SCOPED_TRACE(::testing::PrintToString(arguments));
        const Outcome outcome = call(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(outcome.err.starts_with("veridane-cli: ")) << outcome.err;
        EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1);
    }
}

TEST_F(Commands, HelpNamesEveryOptionAndTheVersionIsTold) {
    const Outcome help = call({"scan", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* text :
         {"Usage: veridane-cli scan", "--volume", "--home", "--include", "--exclude", "--format",
          "--output", "--language", "--fail-on", "--no-progress", "launch-services", "Exit status"})
        EXPECT_NE(help.out.find(text), std::string::npos) << text;
    EXPECT_TRUE(call({"--version"}).out.starts_with("Veridane "));
}

TEST_F(Commands, TheSummaryCountsAndThenListsWhatNeedsAttention) {
    addIntelApplication();
    addHalfNativeApplication();
    volume.file("/usr/local/bin/tool", thinMachO(Slice::x86_64));
    volume.file("/opt/homebrew/bin/tool", thinMachO(Slice::arm64));
    EXPECT_EQ(scan({}).out,
              "Geprüfte Objekte: 4\n"
              "\n"
              "       1  ● Benötigt Rosetta 2\n"
              "       1  ● Teilweise betroffen\n"
              "       1  ● Native verfügbar\n"
              "       1  ● Bereit\n"
              "       0  ○ Läuft schon heute nicht\n"
              "       0  ○ Unklar\n"
              "\n"
              "Handlungsbedarf: 2\n"
              "\n"
              "● Benötigt Rosetta 2\n"
              "  Näher      x86_64  Example  /Applications/Näher.app\n"
              "\n"
              "● Läuft weiter – Intel-Teile benötigen Rosetta 2\n"
              "  Evil\uFFFD[31m  arm64   —        /Applications/Evil\uFFFD[31m.app\n");
    EXPECT_NE(scan({"--language", "en"}).out.find("Keeps running – Intel parts need Rosetta 2"),
              std::string::npos);
    const Outcome onTerminal = scan({}, false, true);
    EXPECT_NE(onTerminal.out.find("\x1b[31m● Benötigt Rosetta 2\x1b[0m"), std::string::npos);
    EXPECT_NE(onTerminal.err.find("4/4  Analysiere Dienste & Tools …"), std::string::npos);
    EXPECT_EQ(scan({"--no-progress"}, false, true).err, "");
}

TEST_F(Commands, NothingToDoIsSaidInASentence) {
    volume.file("/usr/local/bin/tool", thinMachO(Slice::arm64));
    EXPECT_TRUE(scan({}).out.ends_with("\nBereit – keine App ist auf Rosetta angewiesen.\n"));
}

TEST_F(Commands, CategoriesAndHomesDecideWhatIsScanned) {
    addIntelApplication();
    volume.folder("/System/Applications/S.app").folder("/Users/anna/Applications/A.app");
    volume.folder("/Users/jonas/Applications/J.app").folder("/Library/QuickLook/Q.qlgenerator");
    const auto count = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--format", "json"});
        return itemCount(scan(arguments));
    };
    EXPECT_EQ(count({}), 4U);
    EXPECT_EQ(count({"--home", "/Users/jonas"}), 3U);
    EXPECT_EQ(count({"--home", "/Users/jonas", "--home", "/Users/anna"}), 4U);
    EXPECT_EQ(count({"--include", "system-apps,extensions"}), 2U);
    EXPECT_EQ(count({"--exclude", "applications"}), 1U);
    EXPECT_EQ(count({"--include", "system-apps,extensions", "--exclude", "extensions"}), 1U);
}

TEST_F(Commands, EachFormatGoesToTheOutputOrToAFileAsItIs) {
    addIntelApplication();
    const std::pair<const char*, const char*> beginnings[] = {
        {"csv", "Name;Art;Status;"},
        {"json", "{\n  \"generatedAt\" : \""},
        {"markdown", "# Veridane-Bericht\n"},
        {"snapshot", "{\""},
    };
    for (const auto& [format, beginning] : beginnings) {
        SCOPED_TRACE(format);
        const Outcome outcome = scan({"--format", format});
        EXPECT_TRUE(outcome.out.starts_with(beginning)) << outcome.out;
        const Outcome toFile = scan({"--format", format, "-o", volume.hostPath("/report")});
        EXPECT_EQ(toFile.status, 0);
        EXPECT_EQ(toFile.out, "");
        EXPECT_TRUE(fileText("/report").starts_with(beginning));
    }
    const auto snapshot = nlohmann::json::parse(scan({"--format", "snapshot"}).out);
    EXPECT_EQ(snapshot.at("schemaVersion"), 1);
    EXPECT_EQ(snapshot.at("items").at(0).at("updateResult"),
              nlohmann::json::parse(R"({"notChecked":{}})"));
}

TEST_F(Commands, FailingOnAttentionCountsWhatMacOS28Breaks) {
    EXPECT_EQ(scan({"--fail-on", "attention"}).status, 0);
    addIntelApplication();
    EXPECT_EQ(scan({"--fail-on", "attention"}).status, 1);
    EXPECT_EQ(scan({}).status, 0);
    volume.bundle("/Applications/Twin.app")
        .identifier("com.example.naeher")
        .executable("x", {Slice::arm64});
    EXPECT_EQ(scan({"--fail-on", "attention"}).status, 0);
}

TEST_F(Commands, ACancelledScanDeliversNothing) {
    addIntelApplication();
    volume.file("/report", "old");
    const Outcome outcome = scan({"-o", volume.hostPath("/report")}, true);
    EXPECT_EQ(outcome.status, 130);
    EXPECT_EQ(fileText("/report"), "old");
    EXPECT_EQ(call({"inspect", volume.root()}, true).status, 130);
}

TEST_F(Commands, InspectingJudgesEachPathByItself) {
    addIntelApplication();
    volume.file("/script", "#!/bin/sh\n");
    const Outcome outcome = call({"inspect", "--format", "json", "--volume", volume.root(),
                                  "/Applications/Näher.app", "/gone", "/script"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "veridane-cli: /gone does not exist\n");
    const auto objects = nlohmann::ordered_json::parse(outcome.out);
    ASSERT_EQ(objects.size(), 2U);
    auto first = objects[0];
    EXPECT_TRUE(first["advice"].get<std::string>().starts_with("Diese App läuft nur über"));
    first.erase("advice");
    EXPECT_EQ(first.dump(), R"({"path":"/Applications/Näher.app","isMachO":true,)"
                            R"("architectures":["x86_64"],"status":"needsRosetta",)"
                            R"("intelComponents":[],"urgency":"breaksOnMacOS28",)"
                            R"("verdict":"Benötigt Rosetta 2","vendor":"Example",)"
                            R"("teamIdentifier":null,"updateSource":"unsigned"})");
    EXPECT_EQ(objects[1]["status"], "unknown");
    EXPECT_EQ(objects[1]["isMachO"], false);
}

TEST_F(Commands, AnInspectionReadsLikeAFactSheet) {
    addHalfNativeApplication();
    const std::string path = volume.hostPath("/Applications/Evil\x1b[31m.app");
    const Outcome outcome = call({"inspect", "--language", "en", path});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out.find('\x1b'), std::string::npos);
    for (const char* line : {"\n  Assessment    Keeps running – Intel parts need Rosetta 2\n",
                             "\n  Architecture  arm64\n", "\n  Vendor        —\n",
                             "\n  Embedded Intel Components (1)\n    Contents/Helper\n"})
        EXPECT_NE(outcome.out.find(line), std::string::npos) << line << outcome.out;
    std::istringstream lines(outcome.out);
    for (std::string line; std::getline(lines, line);) {
        if (!line.ends_with(".app")) {
            EXPECT_LE(line.size(), 100U) << line;
        }
    }
}

} // namespace
} // namespace veridane::cli
