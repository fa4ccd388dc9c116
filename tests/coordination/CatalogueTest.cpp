#include "coordination/AppCatalogue.h"
#include "platform/CurlHttpClient.h"
#include "support/LoopbackServer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <future>

namespace veridane::test {
namespace {

using Apps = std::vector<MirefoldApp>;

/// Puts another site in the maker's place.
class Catalogue : public ::testing::Test {
protected:
    void TearDown() override { ::unsetenv("VERIDANE_SITE"); }

    static AppCatalogue::Outcome fetchedFrom(const std::string& site) {
        ::setenv("VERIDANE_SITE", site.c_str(), 1);
        CurlHttpClient client;
        std::promise<AppCatalogue::Outcome> outcome;
        AppCatalogue::fetchRemote(client, [&](auto result) { outcome.set_value(result); });
        return outcome.get_future().get();
    }
};

TEST_F(Catalogue, TheSitesListIsTakenWholeOrNotAtAll) {
    const std::string good = R"({"name":"A","tagline":"T","url":"U","icon":"I"})",
                      bare = R"({"name":"A","tagline":"T","url":"U"})";
    const Apps goodApps = {{"A", "T", "U", "I"}}, noIcon = {{"A", "T", "U", std::nullopt}}, none;
    const auto nested = [](std::size_t levels) {
        return R"([{"name":"A","tagline":"T","url":"U","more":)" + std::string(levels, '[') +
               std::string(levels, ']') + "}]";
    };
    std::string many = "[" + good;
    for (int i = 0; i < 500; ++i)
        many += "," + good;
    const std::tuple<int, std::string, Apps> cases[] = {
        {200,
         "[" + good + R"(,{"url":"","tagline":"\n","name":"\u0000","more":[{}]}])",
         {goodApps[0], {std::string(1, '\0'), "\n", "", std::nullopt}}},
        {299, "[" + bare + "]", noIcon},
        {200, R"([{"name":"A","tagline":"T","url":"U","icon":null}])", noIcon},
        {200, R"([{"name":1,"tagline":"T","url":"U","icon":"","icon":"I","name":"A"}])", goodApps},
        {200, nested(510), noIcon},
        {200, nested(511), none},
        {200, many + "]", none},
        {404, "[" + good + "]", none},
        {304, "[" + good + "]", none},
        {200, "[]", none},
        {200, "", none},
        {200, good, none},
        {200, "[" + good + R"(,{"name":"A","url":"U"}])", none},
        {200, "[" + good + R"(,{"name":"A","tagline":"T","url":["U"]}])", none},
        {200, "[" + good + R"(,{"name":"A","tagline":"T","url":"U","icon":7}])", none},
        {200, "[" + good + ",null]", none},
        {200, "[" + good + "]" + std::string(1, '\0'), none},
        {200, "[{\"name\":\"\xff\",\"tagline\":\"T\",\"url\":\"U\"}]", none},
    };
    // Each is the list of a site of its own: "/12/apps.json".
    LoopbackServer server([&](const LoopbackServer::Request& request, auto& connection) {
        const auto& [status, body, apps] = cases[std::stoul(request.target.substr(1))];
        EXPECT_TRUE(request.target.ends_with("/apps.json")) << request.target;
        connection.answer(status, body);
    });
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto& [status, body, apps] = cases[i];
        const auto fetched = fetchedFrom(server.url("/" + std::to_string(i) + "/"));
        EXPECT_EQ(std::get<Apps>(fetched), apps) << body.substr(0, 200);
    }
}

TEST_F(Catalogue, ASiteThatIsEndlessOrNowhereIsAnError) {
    LoopbackServer server([](const auto&, auto& connection) {
        connection.send("HTTP/1.1 200 OK\r\n\r\n");
        connection.sendEndlessly("[]      ");
    });
    for (const char* site : {"http://127.0.0.1:1", "https://two words"})
        EXPECT_TRUE(std::holds_alternative<TransportError>(fetchedFrom(site))) << site;
    EXPECT_EQ(std::get<TransportError>(fetchedFrom(server.url(""))).limit, 1 << 20);
}

TEST_F(Catalogue, TheProgramKnowsEight) {
    ::setenv("VERIDANE_SITE", "https://site.example", 1);
    const Apps apps = AppCatalogue::builtIn();
    ASSERT_EQ(apps.size(), 8u);
    EXPECT_EQ(apps[2], (MirefoldApp{"Binsenband", "Eine Zwischenablage mit Gedächtnis.",
                                    "https://site.example/apps/binsenband",
                                    "https://site.example/img/products/binsenband.png"}));
}

} // namespace
} // namespace veridane::test
