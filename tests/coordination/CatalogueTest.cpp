#include "coordination/AppCatalogue.h"
#include "platform/CurlHttpClient.h"
#include "platform/Language.h"
#include "support/LoopbackServer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <future>

namespace veridane::test {
namespace {

using namespace std::chrono_literals;
using Apps = std::vector<MirefoldApp>;

/// Puts another site in the maker's place.
class Catalogue : public ::testing::Test {
protected:
    void TearDown() override { ::unsetenv("VERIDANE_SITE"); }
    static void useSite(const std::string& root) { ::setenv("VERIDANE_SITE", root.c_str(), 1); }

    static AppCatalogue::Outcome fetched(HttpClient& client) {
        std::promise<AppCatalogue::Outcome> outcome;
        AppCatalogue::fetchRemote(client, [&](auto result) { outcome.set_value(result); });
        return outcome.get_future().get();
    }
};

const std::string good = R"({"name":"A","tagline":"T","url":"U","icon":"I"})";
const Apps goodApps = {{"A", "T", "U", "I"}};

TEST_F(Catalogue, TheSitesListIsTakenWholeOrNotAtAll) {
    const Apps noIcon = {{"A", "T", "U", std::nullopt}}, none;
    const struct {
        int status;
        std::string body;
        Apps apps;
    } cases[] = {
        {200,
         "[" + good + R"(,{"url":"","tagline":"\n","name":"\u0000","more":[{}]}])",
         {goodApps[0], {std::string(1, '\0'), "\n", "", std::nullopt}}},
        {299, R"([{"name":"A","tagline":"T","url":"U"}])", noIcon},
        {200, R"([{"name":"A","tagline":"T","url":"U","icon":null}])", noIcon},
        {200, R"([{"name":1,"tagline":"T","url":"U","icon":"","icon":"I","name":"A"}])", goodApps},
        {404, "[" + good + "]", none},
        {304, "[" + good + "]", none},
        {200, "[]", none},
        {200, "", none},
        {200, good, none},
        {200, "[" + good + R"(,{"name":"A","url":"U"}])", none},
        {200, "[" + good + R"(,{"name":"A","tagline":null,"url":"U"}])", none},
        {200, "[" + good + R"(,{"name":"A","tagline":"T","url":["U"]}])", none},
        {200, "[" + good + R"(,{"name":"A","tagline":"T","url":"U","icon":7}])", none},
        {200, "[" + good + ",null]", none},
        {200, "[" + good + ",]", none},
        {200, "[" + good + "]" + std::string(1, '\0'), none},
        {200,
         R"([{"name":")"
         "\xff"
         R"(","tagline":"T","url":"U"}])",
         none},
    };
    // Each is the list of a site of its own: "/12/apps.json".
    LoopbackServer server([&](const LoopbackServer::Request& request, auto& connection) {
        const auto& c = cases[std::stoul(request.target.substr(1))];
        EXPECT_TRUE(request.target.ends_with("/apps.json")) << request.target;
        connection.answer(c.status, c.body);
    });
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        useSite(server.url("/" + std::to_string(i) + "/"));
        CurlHttpClient client;
        EXPECT_EQ(std::get<Apps>(fetched(client)), cases[i].apps) << cases[i].body;
    }
}

TEST_F(Catalogue, AnEndlessOrUnreachableSiteIsAnErrorAndSoIsOneWithoutAnAddress) {
    std::string ended;
    {
        LoopbackServer server([](const auto&, auto& connection) {
            connection.send("HTTP/1.1 200 OK\r\n\r\n");
            connection.sendEndlessly("[]      ");
        });
        useSite(server.url(""));
        CurlHttpClient client;
        EXPECT_EQ(std::get<TransportError>(fetched(client)).limit, 1 << 20);
        ended = server.url("");
    }
    for (const std::string& site : {ended, std::string("https://two words")}) {
        useSite(site);
        CurlHttpClient client;
        EXPECT_TRUE(std::holds_alternative<TransportError>(fetched(client))) << site;
    }
}

TEST_F(Catalogue, NobodyWaitsForTheSiteLongerThanEightSeconds) {
    struct SilentClient : HttpClient {
        void get(const HttpRequest& request, BodyHandler, Completion) override {
            duration = request.duration;
        }
        std::optional<std::chrono::milliseconds> duration;
    } client;
    AppCatalogue::fetchRemote(client, nullptr);
    EXPECT_EQ(client.duration, 8s);
}

TEST_F(Catalogue, ListsBeyondAllMeasureAreRefused) {
    const auto list = [](int count, const std::string& element) {
        std::string text = "[" + element;
        for (int i = 1; i < count; ++i)
            text += "," + element;
        return text + "]";
    };
    const auto nested = [](int depth) {
        const auto levels = static_cast<std::size_t>(depth - 2); // below the list and its element
        return R"([{"name":"A","tagline":"T","url":"U","icon":"I","more":)" +
               std::string(levels, '[') + std::string(levels, ']') + "}]";
    };
    EXPECT_EQ(AppCatalogue::parse(list(500, good)).value_or(Apps()).size(), 500u);
    EXPECT_EQ(AppCatalogue::parse(list(501, good)), std::nullopt);
    EXPECT_EQ(AppCatalogue::parse(nested(512)), goodApps);
    EXPECT_EQ(AppCatalogue::parse(nested(513)), std::nullopt);
    EXPECT_EQ(AppCatalogue::parse(std::string(1 << 20, '[')), std::nullopt);
}

TEST_F(Catalogue, TheProgramKnowsEightInTheLanguageInForce) {
    useSite("https://site.example");
    const Apps apps = AppCatalogue::builtIn();
    ASSERT_EQ(apps.size(), 8u);
    EXPECT_EQ(apps[2], (MirefoldApp{"Binsenband", "Eine Zwischenablage mit Gedächtnis.",
                                    "https://site.example/apps/binsenband",
                                    "https://site.example/img/products/binsenband.png"}));
    setLanguage(Language::english);
    EXPECT_EQ(AppCatalogue::builtIn().back().tagline, "Notes that find each other.");
    setLanguage(Language::german);
}

} // namespace
} // namespace veridane::test
