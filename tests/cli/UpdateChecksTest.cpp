#include "cli/Commands.h"
#include "platform/Language.h"
#include "support/LoopbackServer.h"
#include "support/VolumeTest.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <sstream>

namespace veridane::cli {
namespace {

using namespace test;
using Json = nlohmann::json;

/// A Mac with one object of each source, and a server that stands in for the store and the feeds.
class UpdateChecks : public VolumeTest {
protected:
    ~UpdateChecks() override {
        ::unsetenv("VERIDANE_STORE_LOOKUP");
        setLanguage(Language::german);
    }
    void build(const LoopbackServer& server) {
        ::setenv("VERIDANE_STORE_LOOKUP", server.url("").c_str(), 1);
        const std::string folder = "/Applications/";
        volume.bundle(folder + "Bought.app").identifier("com.example.bought").receipt();
        volume.bundle(folder + "Fed.app").version("1.0", "10").sparkleFeed(server.url("/feed.xml"));
        volume.bundle(folder + "Gone.app").sparkleFeed(server.url("/gone.xml"));
        volume.folder(folder + "Plain.app");
    }
    int scan(Texts options, const std::stop_token& stop = {}) {
        options.insert(options.begin(), {"scan", "--volume", volume.root(), "--check-updates"});
        std::ostringstream stream, errors;
        const int status =
            run(options, {.out = stream, .err = errors, .showsProgress = true}, stop);
        out = stream.str();
        err = errors.str();
        return status;
    }

    std::string out, err;
};

void answer(const LoopbackServer::Request& request, LoopbackServer::Connection& connection) {
    if (request.target == "/lookup?bundleId=com.example.bought&country=de")
        connection.answer(200, R"({"results":[{"version":"1.0.0"}]})");
    else if (request.target == "/feed.xml")
        connection.answer(200, "<rss><item><enclosure sparkle:version='11' "
                               "sparkle:shortVersionString='1.1'/></item></rss>");
    else
        connection.answer(404);
}

TEST_F(UpdateChecks, TheReportSaysWhatTheStoreAndTheFeedsSay) {
    const LoopbackServer server(answer);
    build(server);
    ASSERT_EQ(scan({"--format", "snapshot"}), success);
    std::map<std::string, Json> results;
    const Json snapshot = Json::parse(out);
    for (const Json& item : snapshot["items"])
        results[item["name"]] = item["updateResult"];
    EXPECT_EQ(results["Bought"], Json::parse(R"({"upToDate":{"latest":"1.0.0"}})"));
    EXPECT_EQ(results["Fed"], Json::parse(R"({"updateAvailable":{"latest":"1.1"}})"));
    EXPECT_EQ(results["Gone"], Json::parse(R"({"failed":{"reason":"HTTP 404"}})"));
    EXPECT_EQ(results["Plain"], Json::parse(R"({"notChecked":{}})"));
    EXPECT_NE(err.find("3/3  Prüfe Updates …"), std::string::npos) << err;
    EXPECT_EQ(server.heads().size(), 3u);

    ASSERT_EQ(scan({"--language", "en"}), success);
    const std::string name(32, ' ');
    EXPECT_TRUE(out.ends_with("\nUpdates\n  Fed " + name + "  Update available → 1.1\n  Gone" +
                              name + "  Error: HTTP 404\n"))
        << out;
}

TEST_F(UpdateChecks, AnEndlessVersionDoesNotFloodTheTerminal) {
    const LoopbackServer server([](const auto&, auto& connection) {
        connection.answer(200, "<rss><item><enclosure sparkle:version='11" +
                                   std::string(100'000, '.') + "'/></item></rss>");
    });
    build(server);
    ASSERT_EQ(scan({}), success);
    EXPECT_NE(out.find("Update verfügbar → 11..."), std::string::npos);
    EXPECT_LT(out.size(), 2'000U);
}

TEST_F(UpdateChecks, AMirrorThatCannotBeAskedIsToldBeforeTheScan) {
    for (const std::string mirror : {"ftp://store.example", "https://my store.example"}) {
        ::setenv("VERIDANE_STORE_LOOKUP", mirror.c_str(), 1);
        EXPECT_EQ(scan({}), failure);
        EXPECT_TRUE(err.starts_with("veridane-cli: VERIDANE_STORE_LOOKUP: " + mirror)) << err;
    }
}

TEST_F(UpdateChecks, CtrlCEndsTheWaitingForAServer) {
    std::stop_source stop;
    const LoopbackServer server([&](const auto&, auto& connection) {
        stop.request_stop();
        connection.stall();
    });
    build(server);
    EXPECT_EQ(scan({}, stop.get_token()), interrupted);
    EXPECT_EQ(out, "");
}

} // namespace
} // namespace veridane::cli
