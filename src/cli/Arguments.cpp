#include "cli/Arguments.h"

#include "cli/Console.h"
#include "platform/Text.h"
#include "platform/Version.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string_view>
#include <utility>

namespace veridane::cli {
namespace {

template <typename Value>
using Names = std::vector<std::pair<std::string, Value>>;

const Names<ScanFormat>& scanFormats() {
    static const Names<ScanFormat> names = {
        {"summary", ScanFormat::summary},   {"csv", ScanFormat::csv},
        {"json", ScanFormat::json},         {"markdown", ScanFormat::markdown},
        {"snapshot", ScanFormat::snapshot},
    };
    return names;
}

const Names<InspectFormat>& inspectFormats() {
    static const Names<InspectFormat> names = {{"text", InspectFormat::text},
                                               {"json", InspectFormat::json}};
    return names;
}

const Names<Language>& languageNames() {
    static const Names<Language> names = [] {
        Names<Language> codes;
        for (const Language language : languages)
            codes.emplace_back(languageCode(language), language);
        return codes;
    }();
    return names;
}

const Names<bool ScanOptions::*>& categories() {
    static const Names<bool ScanOptions::*> names = {
        {"applications", &ScanOptions::includeApplications},
        {"system-apps", &ScanOptions::includeSystemApps},
        {"command-line-tools", &ScanOptions::includeCommandLineTools},
        {"launch-services", &ScanOptions::includeLaunchServices},
        {"audio-plugins", &ScanOptions::includeAudioPlugins},
        {"extensions", &ScanOptions::includeExtensions},
    };
    return names;
}

template <typename Value>
std::string listed(const Names<Value>& names) {
    std::string text;
    for (const auto& [name, value] : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

// Only for names that a check of the option has let pass.
template <typename Value>
Value valueOf(const Names<Value>& names, const std::string& name) {
    return std::ranges::find(names, name, &std::pair<std::string, Value>::first)->second;
}

template <typename Value>
CLI::Validator oneOf(const Names<Value>& names) {
    return CLI::Validator(
        [names](const std::string& given) {
            const bool known =
                std::ranges::any_of(names, [&](const auto& entry) { return entry.first == given; });
            return known ? std::string() : "\"" + given + "\" is none of " + listed(names);
        },
        "");
}

// "a, b" gives "a" and "b"; an empty element stays, for the check to refuse it.
std::vector<std::string> elementsOf(std::string_view list) {
    std::vector<std::string> elements;
    for (;;) {
        const auto comma = list.find(',');
        elements.push_back(text::trimmed(list.substr(0, comma)));
        if (comma == std::string_view::npos)
            return elements;
        list.remove_prefix(comma + 1);
    }
}

template <typename Value>
CLI::Validator listOf(const Names<Value>& names) {
    return CLI::Validator(
        [isElement = oneOf(names)](const std::string& given) {
            for (const std::string& element : elementsOf(given)) {
                if (std::string error = isElement(element); !error.empty())
                    return error;
            }
            return std::string();
        },
        "");
}

// What a script passes of a variable that is not set must not fall back to this machine.
CLI::Validator notEmpty() {
    return CLI::Validator(
        [](const std::string& given) {
            return std::string(given.empty() ? "must not be empty" : "");
        },
        "");
}

constexpr const char* programDescription =
    "Finds the software on a Mac that depends on Rosetta 2, which macOS 28 takes away.\n"
    "Only reads; nothing on the examined disk is changed.";

constexpr const char* scanDescription =
    "Examines a Mac: the running one, or the disk of one that is mounted here.";

constexpr const char* scanFooter = R"(
Categories: applications, system-apps, command-line-tools, launch-services,
audio-plugins, extensions. Without --include all but system-apps are scanned.

Examples:
  veridane-cli scan --volume /media/mac
      The summary of a mounted disk, with the homes of all its users.
  veridane-cli scan --volume /media/mac --format json -o report.json
      The same as a report for other programs.
  veridane-cli scan --include applications,audio-plugins --language en
      Two categories of this machine, in English.
  veridane-cli scan --check-updates --format csv -o report.csv
      With newer versions, as far as the store and the feeds tell.

Exit status: 0 done; 1 something needs attention (only with --fail-on);
2 wrong usage, or the output cannot be written; 130 cancelled with Ctrl-C.)";

constexpr const char* inspectDescription = "Judges single files or bundles, whatever they are.";

constexpr const char* inspectFooter = R"(
Examples:
  veridane-cli inspect ./Build/MyTool.app
  veridane-cli inspect --format json /usr/local/bin/*
  veridane-cli inspect --volume /media/mac /Applications/Foo.app

Exit status: 0 done; 2 wrong usage, a path that does not exist, or the output
cannot be written.)";

// What the library stores of the options, before it means anything.
struct Texts {
    std::optional<std::string> volume;
    std::string language = "de";
    std::vector<std::string> homes;
    std::vector<std::string> include;
    std::vector<std::string> exclude;
    std::string scanFormat = "summary";
    std::string inspectFormat = "text";
    std::optional<std::string> outputFile;
    bool checkUpdates = false;
    std::string failOn;
    bool noProgress = false;
    std::vector<std::string> paths;
};

void addVersion(CLI::App& command) {
    command.set_version_flag("--version", std::string("Veridane ") + productVersion);
}

void addCommonOptions(CLI::App& command, Texts& texts) {
    addVersion(command);
    command.add_option("--volume", texts.volume, "Root folder of the Mac to examine (default: /)")
        ->type_name("DIR")
        ->check(notEmpty());
    command
        .add_option("--language", texts.language, "Language of the results: de or en (default: de)")
        ->type_name("LANGUAGE")
        ->check(oneOf(languageNames()));
}

CLI::App* addScan(CLI::App& program, Texts& texts) {
    CLI::App* scan = program.add_subcommand("scan", scanDescription);
    addCommonOptions(*scan, texts);
    scan->add_option("--home", texts.homes,
                     "A home folder on the volume, such as /Users/anna; can be repeated\n"
                     "(default: all in /Users of the volume; without one, your own)")
        ->type_name("PATH")
        ->allow_extra_args(false)
        ->check(notEmpty());
    scan->add_option("--include", texts.include, "Categories to scan instead of the default ones")
        ->type_name("LIST")
        ->allow_extra_args(false)
        ->check(listOf(categories()));
    scan->add_option("--exclude", texts.exclude, "Categories to leave out")
        ->type_name("LIST")
        ->allow_extra_args(false)
        ->check(listOf(categories()));
    scan->add_option("--format", texts.scanFormat,
                     "summary, csv, json, markdown or snapshot (default: summary)")
        ->type_name("FORMAT")
        ->check(oneOf(scanFormats()));
    scan->add_option("-o,--output", texts.outputFile,
                     "Write the result to FILE, whole or not at all")
        ->type_name("FILE")
        ->check(notEmpty());
    scan->add_flag("--check-updates", texts.checkUpdates,
                   "Ask the store and the objects' own feeds for newer versions");
    scan->add_option("--fail-on", texts.failOn,
                     "attention: exit with 1 if something needs attention before macOS 28")
        ->type_name("WHAT")
        ->check(oneOf(Names<int>{{"attention", 1}}));
    scan->add_flag("--no-progress", texts.noProgress, "No progress bar on the terminal");
    scan->footer(scanFooter);
    return scan;
}

CLI::App* addInspect(CLI::App& program, Texts& texts) {
    CLI::App* inspect = program.add_subcommand("inspect", inspectDescription);
    inspect->add_option("PATH", texts.paths, "Files or bundles")
        ->required()
        ->type_name("")
        ->check(notEmpty());
    addCommonOptions(*inspect, texts);
    inspect->add_option("--format", texts.inspectFormat, "text or json (default: text)")
        ->type_name("FORMAT")
        ->check(oneOf(inspectFormats()));
    inspect->footer(inspectFooter);
    return inspect;
}

void set(ScanOptions& options, const std::vector<std::string>& lists, bool isIncluded) {
    for (const std::string& list : lists) {
        for (const std::string& name : elementsOf(list))
            options.*valueOf(categories(), name) = isIncluded;
    }
}

ScanOptions optionsFrom(const Texts& texts) {
    ScanOptions options;
    if (!texts.include.empty()) {
        options = {false, false, false, false, false, false};
        set(options, texts.include, true);
    }
    set(options, texts.exclude, false);
    return options;
}

void fillCommon(CommonArguments& arguments, const Texts& texts) {
    arguments.volume = texts.volume;
    arguments.language = valueOf(languageNames(), texts.language);
}

ScanArguments scanArguments(const Texts& texts) {
    ScanArguments arguments;
    fillCommon(arguments, texts);
    arguments.homes = texts.homes;
    arguments.options = optionsFrom(texts);
    arguments.format = valueOf(scanFormats(), texts.scanFormat);
    arguments.outputFile = texts.outputFile;
    arguments.checksUpdates = texts.checkUpdates;
    arguments.failsOnAttention = !texts.failOn.empty();
    arguments.showsProgress = !texts.noProgress;
    return arguments;
}

InspectArguments inspectArguments(const Texts& texts) {
    InspectArguments arguments;
    fillCommon(arguments, texts);
    arguments.format = valueOf(inspectFormats(), texts.inspectFormat);
    arguments.paths = texts.paths;
    return arguments;
}

// The library would take "[a]" for a list of values. As a path it means the same behind "./".
void protectBrackets(std::vector<std::string>& arguments) {
    for (std::string& argument : arguments) {
        if (argument.starts_with('[') && argument.ends_with(']'))
            argument.insert(0, "./");
    }
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

} // namespace

std::variant<ScanArguments, InspectArguments, Answer>
parseArguments(std::vector<std::string> arguments) {
    CLI::App program(programDescription, programName);
    Texts texts;
    addVersion(program);
    program.require_subcommand(1);
    program.footer("\n\"veridane-cli scan --help\" and \"veridane-cli inspect --help\" tell more.");
    const CLI::App* scan = addScan(program, texts);
    addInspect(program, texts);
    try {
        protectBrackets(arguments);
        std::ranges::reverse(arguments); // the library takes them from the end
        program.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return Answer{program.help()}; // of the command, if one has been named
    } catch (const CLI::CallForVersion& version) {
        return Answer{std::string(version.what()) + "\n"};
    } catch (const CLI::Error& error) {
        return Answer{firstLine(error.what()) + " (see --help)", true};
    }
    if (scan->parsed())
        return scanArguments(texts);
    return inspectArguments(texts);
}

} // namespace veridane::cli
