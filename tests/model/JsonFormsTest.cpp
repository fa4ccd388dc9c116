#include "model/JsonForms.h"

#include "model/SnapshotReader.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace veridane::json {
namespace {

using Json = nlohmann::json;

const std::string head = R"({"schemaVersion":-3,"scannedAt":"2027-03-01T09:30:00Z","options":{)"
                         R"("includeApplications":true,"includeSystemApps":true,)"
                         R"("includeCommandLineTools":true,"includeLaunchServices":true,)"
                         R"("includeAudioPlugins":false,"includeExtensions":true},"items":[)";
const std::string fullItem =
    R"({"id":"0123ABCD-4567-89EF-0123-456789ABCDEF","name":"A \"B\\\u000a","path":"/Apps/A.app",)"
    R"("kind":"systemExtension","architecture":{"architectures":["x86_64","arm64e"],)"
    R"("isMachO":true},"status":"native","intelComponents":["Contents/a","b"],)"
    R"("bundleIdentifier":"com.acme.ä","version":"1.0","buildNumber":"7","vendor":"Acme",)"
    R"("teamIdentifier":"T1","categoryDescription":"Games","sizeOnDisk":9223372036854775807,)"
    R"("lastModified":"2027-03-01T09:30:00Z","updateSource":"unsigned",)"
    R"("sparkleFeedURL":"https://acme.example/feed","updateResult":{"failed":{"reason":"x"}}})";
const std::string bareItem =
    R"({"id":"00000000-0000-0000-0000-000000000000","name":"","path":"","kind":"other",)"
    R"("architecture":{"architectures":[],"isMachO":false},"status":"unknown",)"
    R"("intelComponents":[],"updateSource":"unknown","updateResult":{"notChecked":{}}})";
const std::string good = head + fullItem + "," + bareItem + "]}";

bool isReadable(const std::string& text) {
    return readSnapshot(text).has_value();
}

std::string replaced(std::string text, const std::string& old, const std::string& replacement) {
    return text.replace(text.find(old), old.size(), replacement);
}

TEST(JsonForms, ASnapshotComesBackAsItWasButForTheFractionsOfItsDates) {
    auto snapshot = readSnapshot(good).value();
    EXPECT_EQ(snapshotText(snapshot), good);
    EXPECT_EQ(snapshot.items.at(0).name, "A \"B\\\n");
    EXPECT_EQ(snapshot.items.at(1), ScanItem());
    for (Date* date : {&snapshot.scannedAt, &*snapshot.items[0].lastModified})
        *date += std::chrono::milliseconds(500);
    EXPECT_EQ(snapshotText(snapshot), good);
    EXPECT_EQ(snapshotText(readSnapshot(head + "]}").value()), head + "]}");
    snapshot.items[1].name = "\xFF";
    EXPECT_NE(snapshotText(snapshot).find("\"\uFFFD\""), std::string::npos);
}

TEST(JsonForms, EachRequiredKeyIsNeededAndAnUnknownOneIsPassedOver) {
    const Json whole = Json::parse(good);
    for (const std::string record : {"", "/options", "/items/0", "/items/0/architecture"}) {
        for (const auto& [key, value] : whole.at(Json::json_pointer(record)).items()) {
            Json damaged = whole;
            damaged[Json::json_pointer(record)].erase(key);
            const bool isOptional = record == "/items/0" && !Json::parse(bareItem).contains(key);
            EXPECT_EQ(isReadable(damaged.dump()), isOptional) << record << '/' << key;
        }
        Json extended = whole;
        extended[Json::json_pointer(record)]["later"] = {{"id", {1, nullptr, {{"items", 2.5}}}}};
        EXPECT_EQ(readSnapshot(extended.dump()), readSnapshot(good));
    }
}

TEST(JsonForms, OneBadValueMakesTheSnapshotUnreadable) {
    const Json damages = Json::parse(R"({
        "": [["schemaVersion", "1"], ["schemaVersion", 1.0], ["options", []], ["items", {}],
             ["scannedAt", "2027-02-29T09:30:00Z"]],
        "/options": [["includeExtensions", 1]], "/items": [["1", null], ["1", []]],
        "/items/0": [["id", "0123ABCD-4567-89EF-0123-456789ABCDEG"], ["name", 1], ["vendor", null],
             ["architecture", []], ["status", ""],
             ["architecture/isMachO", 0], ["architecture/architectures/0", "x86_32"],
             ["kind", "Application"], ["updateSource", "unsigned_"], ["lastModified", 5],
             ["intelComponents/1", 2], ["intelComponents", "a"], ["intelComponents/1", ["a"]],
             ["sizeOnDisk", 9223372036854775808], ["sizeOnDisk", 1e3], ["updateResult", []],
             ["updateResult", {"extra": 1}], ["updateResult", {"noFeed": []}],
             ["updateResult", {"upToDate": {"reason": "1"}}],
             ["updateResult", {"upToDate": {"latest": "1"}, "noFeed": {}}]]})");
    for (const auto& [record, changes] : damages.items()) {
        for (const Json& change : changes) {
            Json damaged = Json::parse(good);
            damaged[Json::json_pointer(record + "/" + change[0].get<std::string>())] = change[1];
            EXPECT_FALSE(isReadable(damaged.dump())) << record << change;
        }
    }
}

TEST(JsonForms, AnUpdateResultIsReadByItsOneKnownKey) {
    for (const std::string text : {R"("notChecked":{})", R"("checking":{})", R"("noFeed":{})",
                                   R"("upToDate":{"latest":"1"})", R"("failed":{"reason":"x"})",
                                   R"("updateAvailable":{"latest":"2"})"}) {
        const std::string whole = replaced(good, R"("notChecked":{})", text);
        EXPECT_EQ(snapshotText(readSnapshot(whole).value()), whole);
        EXPECT_FALSE(isReadable(replaced(whole, text, text + "," + text))) << text;
        const std::string extended = text.substr(0, text.size() - 1) + R"(},"x":{"latest":7})";
        EXPECT_EQ(readSnapshot(replaced(whole, text, extended)), readSnapshot(whole));
    }
    EXPECT_TRUE(isReadable(replaced(good, R"("notChecked":{)", R"("notChecked":{"latest":[1])")));
}

TEST(JsonForms, WhatIsNoSoundTextOfOneSnapshotIsRefused) {
    const auto with = [](const std::string& text) {
        return replaced(good, "{", "{" + text);
    };
    const std::string deep(200'000, '['), end(deep.size(), ']');
    EXPECT_TRUE(isReadable(with(R"("x":)" + deep + end + ",")));
    std::string texts = R"("intelComponents":[)";
    for (std::size_t i = 0; i < maxListedTexts; ++i)
        texts += R"("",)";
    for (const std::string& text :
         {with(R"("x":)" + deep), with(R"("schemaVersion":1,)"), with("\"\xFF\":1,"),
          with("\"x\":[\"\xC3\"],"), with(R"("x":"\ud800",)"), with("\"x\":\"\n\","),
          replaced(good, R"("vendor":)", R"("vendor":"A","vendor":)"),
          replaced(good, "Acme", "\xC0\xAF"), good + "{}", good + std::string("\0x", 2),
          good.substr(1), "[" + good + "]", good.substr(0, good.size() - 1), std::string("null"),
          std::string(), replaced(good, "\"intelComponents\":[", texts)})
        EXPECT_FALSE(isReadable(text)) << text.substr(0, 2000);
}

} // namespace
} // namespace veridane::json
