#include "cli/Commands.h"

#include "cli/Interruption.h"
#include "cli/Style.h"
#include "platform/Language.h"
#include "support/VolumeTest.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>

namespace veridane::cli {
namespace {

using namespace test;
using Json = nlohmann::ordered_json;

class Commands : public VolumeTest {
protected:
    ~Commands() override { setLanguage(Language::german); }

    /// Runs a command line and gives the exit status. VOLUME stands for the volume's place, EMPTY
    /// for an argument without any text.
    int call(const std::string& line) {
        std::istringstream words(line);
        Texts arguments(std::istream_iterator<std::string>(words), {});
        std::ranges::replace(arguments, "VOLUME", volume.root());
        std::ranges::replace(arguments, "EMPTY", "");
        return call(arguments);
    }
    int call(const Texts& arguments) {
        std::ostringstream outStream, errStream;
        std::stop_source stop;
        if (isStopped)
            stop.request_stop();
        const Console console{outStream, errStream, isOnTerminal, isOnTerminal};
        const int status = run(arguments, console, stop.get_token());
        out = outStream.str();
        err = errStream.str();
        return status;
    }
    int scan(const std::string& options = "") { return call("scan --volume VOLUME " + options); }
    Json items(const std::string& options = "") {
        scan("--format json " + options);
        return Json::parse(out)["items"];
    }
    void addApplication(const std::string& name, Slice slice) {
        const std::string path = "/Applications/" + name + ".app";
        volume.bundle(path).identifier("com.example.naeher").executable("x", {slice});
    }
    void addHalfNativeApplication() {
        const std::string path = "/Applications/Evil\x1b[31m.app/Contents/";
        volume.file(path + "MacOS/x", thinMachO(Slice::arm64));
        volume.file(path + "Helper", thinMachO(Slice::x86_64));
    }

    bool isStopped = false, isOnTerminal = false;
    std::string out, err;
};

TEST_F(Commands, AWrongCallIsToldInOneLine) {
    for (const char* line :
         {"", "scam", "scan --format xml", "scan --language fr", "inspect",
          "scan --include applications,toys", "scan --volume /nowhere",
          "scan --volume VOLUME --home /Users/gone", "scan --volume VOLUME -o /no/such/folder/file",
          "scan --volume VOLUME -o /dev/full", "scan --volume EMPTY", "scan -o EMPTY",
          "scan --home EMPTY", "scan --include applications,,extensions", "inspect x EMPTY"}) {
        EXPECT_EQ(call(line), 2) << line;
        EXPECT_TRUE(out.empty() && err.starts_with("veridane-cli: ")) << out << err;
        EXPECT_EQ(std::ranges::count(err, '\n'), 1) << err;
    }
    call("inspect --volume VOLUME /[a,b]");
    EXPECT_EQ(err, "veridane-cli: /[a,b] does not exist\n");
    EXPECT_EQ(call("scan --help"), 0);
    EXPECT_NE(out.find("--fail-on"), std::string::npos) << out;
    EXPECT_EQ(call("--version"), 0);
    EXPECT_TRUE(out.starts_with("Veridane ")) << out;
}

TEST_F(Commands, TheSummaryCountsAndThenListsWhatNeedsAttention) {
    volume.file("/opt/homebrew/bin/tool", thinMachO(Slice::arm64));
    scan();
    EXPECT_TRUE(out.ends_with("\nBereit – keine App ist auf Rosetta angewiesen.\n")) << out;
    addApplication("Näher", Slice::x86_64);
    addHalfNativeApplication();
    volume.file("/usr/local/bin/tool", thinMachO(Slice::x86_64));
    scan();
    EXPECT_EQ(out, "Geprüfte Objekte: 4\n\n"
                   "       1  ● Benötigt Rosetta 2\n"
                   "       1  ● Teilweise betroffen\n"
                   "       1  ● Native verfügbar\n"
                   "       1  ● Bereit\n"
                   "       0  ○ Läuft schon heute nicht\n"
                   "       0  ○ Unklar\n\n"
                   "Handlungsbedarf: 2\n\n"
                   "● Benötigt Rosetta 2\n"
                   "  Näher      x86_64  Example  /Applications/Näher.app\n\n"
                   "● Läuft weiter – Intel-Teile benötigen Rosetta 2\n"
                   "  Evil\uFFFD[31m  arm64   —        /Applications/Evil\uFFFD[31m.app\n");
    isOnTerminal = true;
    scan();
    EXPECT_NE(out.find("\x1b[31m● Benötigt Rosetta 2\x1b[0m"), std::string::npos) << out;
    EXPECT_NE(err.find("4/4  Analysiere Dienste & Tools …"), std::string::npos) << err;
    scan("--no-progress");
    EXPECT_EQ(err, "");
}

TEST_F(Commands, CategoriesAndHomesDecideWhatIsScanned) {
    volume.folder("/Applications/A.app").folder("/Library/QuickLook/Q.qlgenerator");
    volume.folder("/System/Applications/S.app").folder("/Users/anna/Applications/A.app");
    volume.folder("/Users/jonas/Applications/J.app").folder("/Users/Shared/Applications/N.app");
    volume.folder("/Users/.hidden/Applications/N.app").link("/Users/linked", "anna");
    EXPECT_EQ(items().size(), 4U);
    EXPECT_EQ(items("--home /Users/jonas").size(), 3U);
    EXPECT_EQ(items("--include system-apps,extensions --exclude extensions").size(), 1U);
}

TEST_F(Commands, AReportGoesToTheOutputOrToAFileAsItIs) {
    EXPECT_EQ(scan("--format csv"), 0);
    const std::string report = out;
    EXPECT_EQ(scan("--format csv -o " + volume.hostPath("/report")), 0);
    EXPECT_EQ(out, "");
    EXPECT_EQ(textOf(volume.hostPath("/report")), report);
}

TEST_F(Commands, FailingOnAttentionCountsWhatMacOS28Breaks) {
    EXPECT_EQ(scan("--fail-on attention"), 0);
    addApplication("Intel", Slice::x86_64);
    EXPECT_EQ(scan("--fail-on attention"), 1);
    EXPECT_EQ(scan(), 0);
    addApplication("Twin", Slice::arm64);
    EXPECT_EQ(scan("--fail-on attention"), 0);
}

TEST_F(Commands, ACancelledScanDeliversNothing) {
    volume.file("/report", "old");
    isStopped = true;
    EXPECT_EQ(scan("-o " + volume.hostPath("/report")), 130);
    EXPECT_EQ(textOf(volume.hostPath("/report")), "old");
    EXPECT_EQ(call("inspect VOLUME"), 130);
}

TEST_F(Commands, InspectingJudgesEachPathByItself) {
    addApplication("Näher", Slice::x86_64);
    volume.file("/script", "#!/bin/sh\n");
    EXPECT_EQ(call("inspect --format json --volume VOLUME /Applications/Näher.app /gone /script"),
              2);
    EXPECT_EQ(err, "veridane-cli: /gone does not exist\n");
    const auto objects = Json::parse(out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0]["path"], "/Applications/Näher.app");
    EXPECT_EQ(objects[0]["verdict"], "Benötigt Rosetta 2");
    EXPECT_EQ(objects[0]["urgency"], "breaksOnMacOS28");
    EXPECT_EQ(objects[0]["teamIdentifier"], nullptr);
    EXPECT_EQ(objects[1]["isMachO"], false);
}

TEST_F(Commands, AnInspectionReadsLikeAFactSheet) {
    addHalfNativeApplication();
    EXPECT_EQ(call("inspect --language en --volume VOLUME /Applications/Evil\x1b[31m.app"), 0);
    EXPECT_EQ(out.find('\x1b'), std::string::npos);
    for (const char* lines : {"\n  Assessment    Keeps running – Intel parts need Rosetta 2\n",
                              "\n  Architecture  arm64\n", "\n  Vendor        —\n",
                              "\n  Embedded Intel Components (1)\n    Contents/Helper\n"})
        EXPECT_NE(out.find(lines), std::string::npos) << lines << out;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(line.ends_with(".app") || line.size() <= 100) << line;
}

bool handlesSignal() {
    struct sigaction action {};
    ::sigaction(SIGINT, nullptr, &action);
    return action.sa_handler != SIG_DFL && action.sa_handler != SIG_IGN;
}

TEST_F(Commands, CtrlCStopsACommandUntilItsResultIsThere) {
    const auto old = std::signal(SIGINT, SIG_IGN);
    const Interruption ignored;
    EXPECT_FALSE(handlesSignal()); // a background job of a script begins like this
    std::signal(SIGINT, SIG_DFL);
    for (const Texts& arguments : {Texts{"scan", "--volume", volume.root()}, {"inspect", "."}}) {
        Interruption interruption;
        EXPECT_TRUE(handlesSignal());
        std::ostringstream both;
        const auto endCancelling = [&] { // too late to begin with, and yet not lost
            std::raise(SIGINT);
            interruption.release();
        };
        const Console console{.out = both, .err = both, .endCancelling = endCancelling};
        EXPECT_EQ(run(arguments, console, interruption.token()), interrupted);
        EXPECT_FALSE(handlesSignal());
        EXPECT_EQ(both.str(), "");
    }
    std::signal(SIGINT, old);
}

TEST(Style, TextIsCutByColumnsBetweenCharacters) {
    EXPECT_EQ(clipped("Bassgrübchen", 12), "Bassgrübchen");
    EXPECT_EQ(clipped("Bassgrübchen", 8), "Bassgrü…");
    EXPECT_EQ(clipped("日本語", 4), "日…");
}

} // namespace
} // namespace veridane::cli
