#pragma once

#include "model/ScanOptions.h"
#include "platform/Language.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace veridane::cli {

enum class ScanFormat : std::uint8_t { summary, csv, json, markdown, snapshot };
enum class InspectFormat : std::uint8_t { text, json };

/// What both commands take.
struct CommonArguments {
    std::optional<std::string> volume; // a directory of this machine
    Language language = Language::german;
};

struct ScanArguments : CommonArguments {
    std::vector<std::string> homes; // on the volume; empty for the default
    ScanOptions options;
    ScanFormat format = ScanFormat::summary;
    std::optional<std::string> outputFile; // of this machine; standard output without
    bool checksUpdates = false;
    bool failsOnAttention = false;
    bool showsProgress = true;
};

struct InspectArguments : CommonArguments {
    InspectFormat format = InspectFormat::text;
    std::vector<std::string> paths; // of this machine, or of the volume if there is one
};

/// A call that is answered by text alone: help, the version, or what is wrong with the call.
struct Answer {
    std::string text;
    bool isError = false;
};

/// Reads the arguments behind the program's name.
[[nodiscard]] std::variant<ScanArguments, InspectArguments, Answer>
parseArguments(std::vector<std::string> arguments);

} // namespace veridane::cli
