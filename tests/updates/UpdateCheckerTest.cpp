#include "updates/UpdateChecker.h"

#include "support/ItemSamples.h"
#include "updates/VersionRule.h"

#include <gtest/gtest.h>

namespace veridane::test {
namespace {

using Result = UpdateCheckResult;

/// Answers every request at once with the same outcome.
struct FixedAnswer : HttpClient {
    void get(const HttpRequest& request, BodyHandler onBody, Completion onEnd) override {
        requests.push_back(request.url.text());
        for (const char byte : body)
            onBody({&byte, 1});
        onEnd(outcome);
    }

    HttpOutcome outcome = HttpStatus{200};
    std::string body;
    std::vector<std::string> requests;
};

class Checker : public ::testing::Test {
protected:
    Checker() {
        item.updateSource = UpdateSource::sparkle;
        item.sparkleFeedURL = "https://example.com/feed.xml?a=1";
        item.bundleIdentifier = "com.example.app";
    }
    UpdateCheckResult check() {
        std::vector<UpdateCheckResult> results;
        client.requests.clear();
        UpdateChecker::check(item, {client, "https://store.example:8443"},
                             [&](auto result) { results.push_back(std::move(result)); });
        EXPECT_EQ(results.size(), 1u);
        return results.at(0);
    }
    UpdateCheckResult checkFeed(const std::string& entry) {
        client.body = "<rss><item>" + entry + "</item></rss>";
        return check();
    }

    ScanItem item = sampleItem("App", CompatibilityStatus::needsRosetta);
    FixedAnswer client;
};

TEST_F(Checker, OfAFeedBuildNumbersDecideBeforeShortVersions) {
    const std::string both = "<enclosure sparkle:version='200' sparkle:shortVersionString='2.0'/>",
                      build = "<sparkle:version>200</sparkle:version>",
                      marketing = "<sparkle:shortVersionString>2.0</sparkle:shortVersionString>";
    using Version = std::optional<std::string>;
    const std::tuple<std::string, Version, Version, Result> cases[] = {
        {both, "3.0", "150", Result::updateAvailable("2.0")},
        {both, "1.0", "200", Result::upToDate("2.0")},
        {both, "1.0", std::nullopt, Result::updateAvailable("2.0")},
        {build, "1.0", std::nullopt, Result::upToDate("200")},
        {build, std::nullopt, "199", Result::updateAvailable("200")},
        {marketing, "1.9", "9999", Result::updateAvailable("2.0")},
        {"", "1.0", "1", Result::upToDate("?")},
        {"<enclosure sparkle:shortVersionString=''/>", "1.0", "1", Result::upToDate("")},
    };
    for (const auto& [entry, version, buildNumber, expected] : cases) {
        item.version = version;
        item.buildNumber = buildNumber;
        EXPECT_EQ(checkFeed(entry), expected) << entry << version.value_or("-");
    }
    EXPECT_EQ(client.requests, std::vector<std::string>{"https://example.com/feed.xml?a=1"});
}

TEST_F(Checker, WhatCannotBeReachedOrReadIsTold) {
    for (const int status : {199, 302, 404}) {
        client.outcome = HttpStatus{status};
        EXPECT_EQ(checkFeed(""), Result::failed("HTTP " + std::to_string(status)));
    }
    client.outcome = HttpStatus{299};
    client.body = "<html>";
    EXPECT_EQ(check(), Result::failed("Appcast nicht lesbar"));
    for (const auto source : {UpdateSource::sparkle, UpdateSource::macAppStore}) {
        item.updateSource = source;
        client.outcome = TransportError{.description = "Could not resolve host"};
        EXPECT_EQ(check(), Result::failed("Could not resolve host"));
        client.outcome = TransportError{.description = "too large", .limit = 5};
        EXPECT_EQ(check(), Result::failed("Antwort zu groß"));
    }
}

TEST_F(Checker, OfTheStoreOnlyTheAnswerCounts) {
    item.updateSource = UpdateSource::macAppStore;
    client.outcome = HttpStatus{503};
    client.body = R"({"results":[{"version":"2.0.0"},{"version":"9"}]})";
    item.buildNumber = "1";
    EXPECT_EQ(check(), Result::upToDate("2.0.0")) << "no version of its own";
    item.version = "2.0";
    EXPECT_EQ(check(), Result::upToDate("2.0.0"));
    item.version = "1.9";
    EXPECT_EQ(check(), Result::updateAvailable("2.0.0"));
    EXPECT_EQ(client.requests,
              std::vector<std::string>{
                  "https://store.example:8443/lookup?bundleId=com.example.app&country=de"});
    client.body = "<html>unavailable</html>";
    EXPECT_EQ(check(), Result::noFeed());
    item.bundleIdentifier = "";
    EXPECT_EQ(check(), Result::noFeed());
    EXPECT_EQ(client.requests.size(), 1u) << "an empty identifier is asked about";
}

TEST_F(Checker, WhatHasNoAddressIsNeverAskedAbout) {
    using enum UpdateSource;
    const std::string good = "https://example.com/";
    const std::pair<UpdateSource, std::optional<std::string>> cases[] = {
        {developerID, good},
        {UpdateSource::unknown, good},
        {sparkle, std::nullopt},
        {sparkle, ""},
        {sparkle, good + "\r\nHost: x"},
        {macAppStore, std::nullopt},
        {macAppStore, "com.example app"},
    };
    for (const auto& [source, address] : cases) {
        item.updateSource = source;
        item.sparkleFeedURL = item.bundleIdentifier = address;
        EXPECT_EQ(check(), Result::noFeed());
        EXPECT_TRUE(client.requests.empty()) << rawString(source) << address.value_or("none");
    }
}

TEST(Version, IsTheListOfNumbersInTheText) {
    using Components = std::vector<std::int64_t>;
    const std::pair<std::string_view, Components> cases[] = {
        {"2.0b3", {2, 0, 3}},
        {"..1..2-", {1, 2}},
        {"", {}},
        {"9223372036854775807.9223372036854775808", {INT64_MAX, 0}},
        {"1.\u0663\u0664.2", {1, 0, 2}}, // Arabic-Indic digits
        {"1½.Ⅻ.3", {0, 0, 3}},           // a fraction joins its run
        {"1十.四五2", {0, 0}},           // Chinese numerals are letters to most rules
        {"1\xFF"
         "2\xE5\x8D",
         {1, 2}},
    };
    for (const auto& [text, components] : cases)
        EXPECT_EQ(UpdateChecker::versionComponents(text), components) << text;
}

TEST(Version, IsNewerByTheFirstComponentThatDiffers) {
    const std::tuple<std::string_view, std::string_view, bool> cases[] = {
        {"1.10", "1.9", true},     {"1.2.1", "1.2", true}, {"1.2", "1.2.0", false},
        {"1.2b3", "1.2.3", false}, {"", "0.0", false},     {"2", "1.9.9", true},
        {"1.0", "1.0.0.1", false},
    };
    for (const auto& [a, b, expected] : cases) {
        EXPECT_EQ(UpdateChecker::isNewer(a, b), expected) << a << " and " << b;
        EXPECT_EQ(UpdateChecker::isNewer(a, UpdateChecker::versionComponents(b)), expected)
            << a << " and " << b;
        EXPECT_FALSE(UpdateChecker::isNewer(a, a)) << a;
    }
}

} // namespace
} // namespace veridane::test
