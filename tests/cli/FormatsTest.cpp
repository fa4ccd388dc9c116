#include "cli/Commands.h"
#include "coordination/StatusFilter.h"
#include "model/JsonForms.h"
#include "model/RecordFields.h"
#include "platform/Language.h"
#include "sample/SampleVolume.h"
#include "support/VolumeTest.h"

#include <nlohmann/json.hpp>

#include <regex>
#include <set>
#include <sstream>

/// docs/formats.md tells all of what the programs write, nothing else, and shows what they write.
namespace veridane::cli {
namespace {

using namespace test;
using Json = nlohmann::json;
using Names = std::set<std::string>;

const std::filesystem::path root = VERIDANE_SOURCE_DIR;

/// The document from that heading on.
std::string from(const std::string& title) {
    static const std::string document = textOf(root / "docs/formats.md");
    const std::size_t start = document.find("# " + title + "\n");
    return start == std::string::npos ? "" : document.substr(start);
}

/// The part under that heading, up to the next one of any level.
std::string section(const std::string& title) {
    const std::string text = from(title);
    return text.substr(0, text.find("\n#"));
}

Names matches(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    Names names;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
        names.insert((*match)[1]);
    return names;
}

/// What stands as code in the first column of the tables in that part.
Names told(const std::string& title) {
    return matches(section(title), "\n\\| `([^`]+)` \\|");
}

/// The texts of an enumeration's values.
template <typename Enumeration, typename Text>
Names textsOf(std::size_t count, Text text) {
    Names names;
    for (std::size_t i = 0; i < count; ++i)
        names.insert(std::string(text(static_cast<Enumeration>(i))));
    return names;
}

/// The keys of all objects in a value.
Names keysIn(const Json& value) {
    Names keys;
    for (const auto& [key, element] : value.items()) {
        if (value.is_object())
            keys.insert(key);
        if (element.is_structured())
            keys.merge(keysIn(element));
    }
    return keys;
}

/// The parts of the first block behind that heading, without what "…" stands for.
Texts shown(const std::string& title) {
    const std::string text = from(title);
    std::size_t start = text.find("\n```");
    start = text.find('\n', start + 1) + 1;
    std::string block = text.substr(start, text.find("```\n", start) - start);
    Texts parts;
    for (std::size_t end; (end = block.find("…\n")) != std::string::npos;) {
        parts.push_back(block.substr(0, end));
        block.erase(0, end + std::string("…\n").size());
    }
    parts.push_back(block);
    return parts;
}

std::string withFixedDates(const std::string& text) {
    return std::regex_replace(text, std::regex("[0-9-]{10}T[0-9:]{8}Z"), "DATE");
}

class Formats : public VolumeTest {
protected:
    Formats() { sample::writeSampleVolume(volume); }

    std::string outputOf(Texts arguments) {
        std::ostringstream out, err;
        arguments.insert(arguments.begin() + 1, {"--volume", volume.root()});
        EXPECT_EQ(run(arguments, Console{.out = out, .err = err}, {}), 0) << err.str();
        return out.str();
    }
    std::string scan(const std::string& format) { return outputOf({"scan", "--format", format}); }
};

TEST_F(Formats, EveryKeyAndValueIsTold) {
    const auto raw = [](auto value) {
        return rawString(value);
    };
    const auto shownResult = [](UpdateCheckResult::Case kind) {
        const bool hasVersion = kind != UpdateCheckResult::Case::failed;
        return displayName(UpdateCheckResult{kind, hasVersion ? "2.1" : "HTTP 404"});
    };
    const std::string coordinator = textOf(root / "src/coordination/ScanCoordinator.cpp");
    Names logged = matches(coordinator, R"re(\{"(\w+)"[,)])re"); // the fields
    for (const auto& file : std::filesystem::recursive_directory_iterator(root / "src")) {
        if (file.is_regular_file())
            logged.merge(matches(textOf(file.path()), R"re(logEvent\("(\w+)")re"));
    }
    std::string settings;
    for (const char* unit : {"Preferences", "ContentView", "ResultsHeader"})
        settings += textOf(root / "src/ui" / (unit + std::string(".cpp")));
    Names snapshot = keysIn(Json::parse(scan("snapshot")));
    for (const json::UpdateResultForm& form : json::updateResultForms)
        snapshot.insert(form.name);
    const std::string csv = scan("csv");

    const std::pair<const char*, Names> written[] = {
        {"kind", textsOf<ItemKind>(itemKindCount, raw)},
        {"status", textsOf<CompatibilityStatus>(compatibilityStatusCount, raw)},
        {"architecture", textsOf<CPUArch>(cpuArchCount, raw)},
        {"updateSource", textsOf<UpdateSource>(updateSourceCount, raw)},
        {"urgency", textsOf<Urgency>(urgencyCount, caseName)},
        {"updateResult",
         textsOf<UpdateCheckResult::Case>(json::updateResultForms.size(), shownResult)},
        {"JSON report", keysIn(Json::parse(scan("json")))},
        {"CSV report", matches(csv.substr(0, csv.find('\n')), "([^;]+)")},
        {"Inspection", keysIn(Json::parse(outputOf({"inspect", "--format", "json", "/"})))},
        {"Snapshot", snapshot},
        {"Stability log", logged},
        {"Settings", matches(settings, R"re((?:Key|return QStringLiteral)\("(\w+)"\))re")},
    };
    for (const auto& [title, names] : written)
        EXPECT_EQ(told(title), names) << title;
    for (const std::string& filter : textsOf<StatusFilter>(statusFilterCount, raw))
        EXPECT_NE(section("Stability log").find("`" + filter + "`"), std::string::npos) << filter;
}

TEST_F(Formats, TheExamplesAreWhatIsWritten) {
    const std::pair<const char*, std::string> outputs[] = {
        {"JSON report", scan("json")},
        {"CSV report", scan("csv") + "\n"},
        {"Markdown report", scan("markdown")},
        {"Inspection", outputOf({"inspect", "--format", "json", "/usr/local/bin/kassenexport"})},
    };
    for (const auto& [title, output] : outputs) {
        const Texts parts = shown(title);
        EXPECT_FALSE(parts.front().empty()) << title;
        for (const std::string& part : parts)
            EXPECT_NE(withFixedDates(output + "\n").find(withFixedDates(part)), std::string::npos)
                << title << '\n'
                << part;
    }
    Json example = Json::parse(shown("Snapshot").front()), found;
    const Json snapshot = Json::parse(scan("snapshot"));
    for (const Json& item : snapshot["items"]) {
        if (item["path"] == example["path"])
            found = item;
    }
    found["id"] = example["id"];
    EXPECT_EQ(example, found);
}

} // namespace
} // namespace veridane::cli
