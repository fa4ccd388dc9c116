#pragma once

#include "support/PlistBuilder.h"
#include "support/VolumeBuilder.h"

#include <cstdint>

/// The objects that made-up Macs are put together of, as rows of tables, and how each is written.
namespace veridane::sample {

/// What a main executable holds code for; `script` is none.
enum class Code {
    script,
    appleSilicon,
    appleSystem,
    universal,
    intel,
    intelWith32Bit,
    intel32Bit,
    powerPC,
    oldPowerPC,
    arm32Bit,
};

enum class Signing { notSigned, adHoc, developerID, store, oldStore, development, apple };

using enum Code; // bare in the tables
using enum Signing;

struct Maker {
    const char* name = "";
    const char* team = "";
};

struct Day {
    int year;
    unsigned month, day;
};

/// What only some bundles have.
struct Extras {
    const char* feed = "";
    const char* displayName = "";
    bool hasReceipt = false;
    bool hasSparkleFramework = false;
    bool isFlat = false;
};

/// An application, audio plug-in or extension; its place on the disk decides which.
struct Bundle {
    const char* path;
    const char* identifier;
    const char* version;
    const char* build;
    Code code;
    int kilobytes; // of the main executable; the resources have half as many
    Day modified;
    Maker maker = {};
    Signing signing = Signing::notSigned;
    const char* category = "";
    Extras extras = {};
};

/// A file inside one of the bundles.
struct Component {
    const char* path;
    Code code;
    int kilobytes;
};

struct Tool {
    const char* path;
    Code code;
    int kilobytes;
    Day modified;
    Maker maker = {};
    Signing signing = Signing::notSigned;
};

struct Link {
    const char* path;
    const char* target;
};

struct Service {
    const char* path;
    const char* label;
    const char* program;
    bool hasArguments = false;
    test::PlistForm form = test::PlistForm::xml;
};

/// Each is written in a place of the volume where nothing stands yet.
void write(test::VolumeBuilder& volume, const Bundle& bundle);
void write(test::VolumeBuilder& volume, const Component& component);
void write(test::VolumeBuilder& volume, const Tool& tool);
void write(test::VolumeBuilder& volume, const Service& service);

/// Noon in Greenwich, so that the day is the same in most of the world; in seconds since 1970.
[[nodiscard]] std::int64_t secondsOf(Day day);

} // namespace veridane::sample
