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
    EXPECT_EQ(item.sizeOnDisk, INT64_MAX);
    item.lastModified = *item.lastModified + std::chrono::milliseconds(500);
    EXPECT_EQ(encode(item).dump(), fullText);

    EXPECT_EQ(readItem(bareText), ScanItem());
    EXPECT_EQ(encode(ScanItem()).dump(), bareText);
}

TEST(JsonForms, OneBadFieldMakesAnItemUnreadable) {
    const Json damages = Json::parse(R"([
        ["/id", "0123ABCD-4567-89EF-0123-456789ABCDE"], ["/id", "0123ABCD-4567-89EF-0123+456789ABCDEF"],
        ["/id", "0123ABCD-4567-89EF-0123-456789ABCDEG"], ["/name", 1], ["/vendor", null],
        ["/architecture/isMachO", 1], ["/architecture/architectures/0", "x86_32"],
        ["/kind", "Application"], ["/status", ""], ["/updateSource", "unsigned_"],
        ["/intelComponents/1", 2], ["/intelComponents", "a"], ["/sizeOnDisk", 9223372036854775808],
        ["/sizeOnDisk", 1.0], ["/sizeOnDisk", true], ["/lastModified", "2027-03-01T09:30:00.5Z"],
        ["/updateResult", []], ["/updateResult/failed", {}]])");
    for (const Json& damage : damages) {
        Json damaged = Json::parse(fullText);
        damaged[Json::json_pointer(damage[0])] = damage[1];
        EXPECT_EQ(decodeScanItem(damaged).index(), 1u) << damage;
    }
    const Json bare = Json::parse(bareText);
    for (const auto& [key, value] : bare.items()) {
        Json damaged = bare;
        damaged.erase(key);
        EXPECT_EQ(std::get<Unreadable>(decodeScanItem(damaged)).reason, key + ": Missing.");
    }
    EXPECT_EQ(decodeScanItem(Json::array()).index(), 1u);
    EXPECT_EQ(readItem(R"({"later":1,)" + bareText.substr(1)), ScanItem());
}

TEST(JsonForms, AnUpdateResultHasExactlyOneCase) {
    for (const char* text : {R"({"notChecked":{}})", R"({"checking":{}})", R"({"noFeed":{}})",
                             R"({"upToDate":{"latest":"1"}})", R"({"failed":{"reason":"x"}})",
                             R"({"updateAvailable":{"latest":"2"}})"}) {
        const auto reading = decodeUpdateCheckResult(Json::parse(text));
        EXPECT_EQ(encode(std::get<UpdateCheckResult>(reading)).dump(), text);
    }
    for (const char* text :
         {R"({"upToDate":{"latest":"1"},"noFeed":{}})", "{}", R"({"extra":1})", R"({"noFeed":[]})",
          R"({"upToDate":{"reason":"1"}})", "7", "null", R"({"upToDate":{"latest":1}})"})
        EXPECT_EQ(decodeUpdateCheckResult(Json::parse(text)).index(), 1u) << text;
    const Json extended = Json::parse(R"({"failed":{"reason":"x"},"extra":1})");
    EXPECT_EQ(std::get<UpdateCheckResult>(decodeUpdateCheckResult(extended)),
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
    const Json parsed = Json::parse(snapshotText(snapshot));
    EXPECT_EQ(std::get<ScanOptions>(decodeScanOptions(parsed["options"])), snapshot.options);
    snapshot.items[1].name = "\xFF";
    EXPECT_NE(snapshotText(snapshot).find("\"\uFFFD\""), std::string::npos);
    EXPECT_EQ(decodeScanOptions(Json::parse(R"({"includeApplications":true})")).index(), 1u);
}

} // namespace
} // namespace veridane::json
