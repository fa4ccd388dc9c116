#include "model/JsonForms.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace veridane::json {
namespace {

using Json = nlohmann::json;

const std::string fullText =
    R"({"architecture":{"architectures":["x86_64","arm64e"],"isMachO":true},"buildNumber":"7",)"
    R"("bundleIdentifier":"com.acme.ä","categoryDescription":"Games",)"
    R"("id":"0123ABCD-4567-89EF-0123-456789ABCDEF","intelComponents":["Contents/a","b"],)"
    R"("kind":"systemExtension","lastModified":"2027-03-01T09:30:00Z","name":"A \"B\"",)"
    R"("path":"/Applications/A.app","sizeOnDisk":9223372036854775807,)"
    R"("sparkleFeedURL":"https://acme.example/feed","status":"native","teamIdentifier":"T1",)"
    R"("updateResult":{"failed":{"reason":"x"}},"updateSource":"unsigned","vendor":"Acme",)"
    R"("version":"1.0"})";
const std::string bareText =
    R"({"architecture":{"architectures":[],"isMachO":false},)"
    R"("id":"00000000-0000-0000-0000-000000000000","intelComponents":[],"kind":"other","name":"",)"
    R"("path":"","status":"unknown","updateResult":{"notChecked":{}},"updateSource":"unknown"})";

ScanItem readItem(const std::string& text) {
    const auto reading = decodeScanItem(Json::parse(text));
    EXPECT_TRUE(std::holds_alternative<ScanItem>(reading)) << std::get<Unreadable>(reading).reason;
    return std::get<ScanItem>(reading);
}

TEST(JsonForms, AnItemComesBackAsItWasButForTheFractionOfItsDate) {
    ScanItem item = readItem(fullText);
    EXPECT_EQ(encode(item).dump(), fullText);
    EXPECT_EQ(item.updateResult, UpdateCheckResult::failed("x"));
    EXPECT_EQ(item.sizeOnDisk, INT64_MAX);

    item.lastModified = *item.lastModified + std::chrono::milliseconds(500);
    EXPECT_EQ(encode(item).dump(), fullText);

    EXPECT_EQ(readItem(bareText), ScanItem());
    EXPECT_EQ(encode(ScanItem()).dump(), bareText);
}

TEST(JsonForms, OneBadFieldMakesAnItemUnreadable) {
    // Where, and the bad value there.
    const std::string_view damages[] = {R"(/id "0123ABCD-4567-89EF-0123-456789ABCDE")",
                                        "/name 1",
                                        "/vendor null",
                                        "/version 1.0",
                                        R"(/id "0123ABCD-4567-89EF-0123+456789ABCDEF")",
                                        "/architecture/isMachO 1",
                                        R"(/id "0123ABCD-4567-89EF-0123-456789ABCDEG")",
                                        R"(/kind "Application")",
                                        R"(/status "")",
                                        R"(/updateSource "unsigned_")",
                                        "/intelComponents/1 2",
                                        R"(/intelComponents "a")",
                                        R"(/architecture/architectures/0 "x86_32")",
                                        "/sizeOnDisk 9223372036854775808",
                                        "/sizeOnDisk 1.0",
                                        "/sizeOnDisk true",
                                        R"(/lastModified "2027-03-01T09:30:00.5Z")",
                                        "/updateResult []",
                                        "/updateResult/failed {}"};
    for (const std::string_view damage : damages) {
        const auto blank = damage.find(' ');
        Json damaged = Json::parse(fullText);
        damaged[Json::json_pointer(std::string(damage.substr(0, blank)))] =
            Json::parse(damage.substr(blank + 1));
        EXPECT_EQ(decodeScanItem(damaged).index(), 1u) << damage;
    }
    const Json bare = Json::parse(bareText);
    for (const auto& [key, value] : bare.items()) {
        Json damaged = bare;
        damaged.erase(key);
        EXPECT_EQ(std::get<Unreadable>(decodeScanItem(damaged)).reason, key + ": Missing.");
    }
    EXPECT_EQ(decodeScanItem(Json::array()).index(), 1u);
    Json extended = bare;
    extended["later"] = 1;
    EXPECT_EQ(readItem(extended.dump()), ScanItem());
}

TEST(JsonForms, AnUpdateResultHasExactlyOneCase) {
    const UpdateCheckResult results[] = {
        UpdateCheckResult::notChecked(),  UpdateCheckResult::checking(),
        UpdateCheckResult::upToDate("1"), UpdateCheckResult::updateAvailable("2"),
        UpdateCheckResult::noFeed(),      UpdateCheckResult::failed("x")};
    std::string texts;
    for (const auto& result : results) {
        texts += encode(result).dump();
        EXPECT_EQ(std::get<UpdateCheckResult>(decodeUpdateCheckResult(encode(result))), result);
    }
    EXPECT_EQ(texts, R"({"notChecked":{}}{"checking":{}}{"upToDate":{"latest":"1"}})"
                     R"({"updateAvailable":{"latest":"2"}}{"noFeed":{}}{"failed":{"reason":"x"}})");

    const Unreadable wrongCount{"Invalid number of keys found, expected one."};
    for (const char* text : {R"({"upToDate":{"latest":"1"},"noFeed":{}})", "{}", R"({"extra":1})"})
        EXPECT_EQ(std::get<Unreadable>(decodeUpdateCheckResult(Json::parse(text))), wrongCount);
    for (const char* text : {R"({"noFeed":[]})", R"({"upToDate":{"reason":"1"}})", "7", "null",
                             R"({"upToDate":{"latest":1}})"})
        EXPECT_EQ(decodeUpdateCheckResult(Json::parse(text)).index(), 1u) << text;
    EXPECT_EQ(std::get<UpdateCheckResult>(
                  decodeUpdateCheckResult(Json::parse(R"({"failed":{"reason":"x"},"extra":1})"))),
              UpdateCheckResult::failed("x"));
}

TEST(JsonForms, ASnapshotIsOneLineWithItsItemsInOrder) {
    CachedScanSnapshot snapshot;
    snapshot.scannedAt = *parseISO8601("2027-03-01T09:30:00Z");
    snapshot.options.includeSystemApps = true;
    const std::string head =
        R"({"schemaVersion":1,"scannedAt":"2027-03-01T09:30:00Z","options":{)"
        R"("includeApplications":true,"includeAudioPlugins":true,"includeCommandLineTools":true,)"
        R"("includeExtensions":true,"includeLaunchServices":true,"includeSystemApps":true},)"
        R"("items":[)";
    EXPECT_EQ(snapshotText(snapshot), head + "]}");
    snapshot.items = {readItem(fullText), ScanItem()};
    EXPECT_EQ(snapshotText(snapshot), head + fullText + "," + bareText + "]}");
    snapshot.items[1].name = "\xFF";
    const Json parsed = Json::parse(snapshotText(snapshot));
    EXPECT_EQ(parsed["items"][1]["name"], "\uFFFD");
    EXPECT_EQ(std::get<ScanOptions>(decodeScanOptions(parsed["options"])), snapshot.options);
    EXPECT_EQ(decodeScanOptions(Json::parse(R"({"includeApplications":true})")).index(), 1u);
}

} // namespace
} // namespace veridane::json
