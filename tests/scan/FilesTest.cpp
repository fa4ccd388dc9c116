#include "scan/FileItems.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

using namespace test;

TEST(Files, AToolFolderIsListedWithoutFoldersAndHiddenFiles) {
    VolumeBuilder volume;
    volume.folder("/bin/folder").file("/bin/b", "").file("/bin/.c", "").link("/bin/a", "folder");
    EXPECT_EQ(listFiles(volume.files(), Path("/bin")),
              (std::vector<Path>{Path("/bin/a"), Path("/bin/b")}));
    EXPECT_TRUE(listFiles(volume.files(), Path("/missing")).empty());
}

TEST(Files, ALinkedToolKeepsItsNameAndPathAndIsReadFromItsTarget) {
    VolumeBuilder volume;
    const Bytes program = thinMachO(
        Slice::x86_64, embeddedSignature({.teamIdentifier = "TEAM123456",
                                          .leafCommonName = "Developer ID Application: Foo (T)"}));
    volume.file("/usr/local/Cellar/foo/1.0/bin/foo-1", program);
    volume.modified("/usr/local/Cellar/foo/1.0/bin/foo-1", 1'500'000'000);
    volume.link("/usr/local/bin/foo", "../Cellar/foo/1.0/bin/foo-1");
    const auto item = makeFileItem(volume.files(), {Path("/usr/local/bin/foo"), {}, {}});
    ASSERT_TRUE(item);
    EXPECT_EQ(item->name, "foo");
    EXPECT_EQ(item->path, "/usr/local/bin/foo");
    EXPECT_EQ(item->status, CompatibilityStatus::needsRosetta);
    EXPECT_EQ(item->vendor, "Foo");
    EXPECT_EQ(item->teamIdentifier, "TEAM123456");
    EXPECT_EQ(item->updateSource, UpdateSource::developerID);
    EXPECT_EQ(item->sizeOnDisk, std::ssize(program));
    EXPECT_EQ(item->lastModified, Date(std::chrono::seconds(1'500'000'000)));
}

TEST(Files, WhatIsNoMachOFileGivesNoItemButIsDescribedWhenAskedForByName) {
    VolumeBuilder volume;
    volume.file("/script", "#!/bin/sh\n").fifo("/fifo").link("/dangling", "nowhere");
    volume.folder("/folder").link("/to-folder", "folder");
    volume.file("/swapped", Bytes{0xBE, 0xBA, 0xFE, 0xCA, 0, 0, 0, 1});
    for (const char* path : {"/script", "/fifo", "/dangling", "/to-folder", "/swapped"}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(makeFileItem(volume.files(), {Path(path), {}, {}}));
        const ScanItem item = describeFile(volume.files(), {Path(path), {}, {}});
        EXPECT_EQ(item.status, CompatibilityStatus::unknown);
        EXPECT_EQ(item.updateSource, UpdateSource::unsigned_);
    }
}

TEST(Files, ALaunchPlistIsReducedToItsProgram) {
    const PlistList arguments{"/usr/local/bin/tool", "--flag"};
    const struct {
        const char* what;
        PlistDictionary plist;
        std::optional<std::pair<const char*, const char*>> target; // path and name
    } cases[] = {
        {"program and label",
         {{"Label", "org.x"}, {"Program", "/usr/local/bin/tool"}},
         {{"/usr/local/bin/tool", "org.x"}}},
        {"arguments, no label",
         {{"ProgramArguments", arguments}},
         {{"/usr/local/bin/tool", "tool"}}},
        {"empty label",
         {{"Label", ""}, {"ProgramArguments", arguments}},
         {{"/usr/local/bin/tool", ""}}},
        {"no label, a linked program",
         {{"Program", "/usr/local/bin/link"}},
         {{"/usr/local/bin/link", "link"}}},
        {"program of another type",
         {{"Program", 7}, {"ProgramArguments", arguments}},
         {{"/usr/local/bin/tool", "tool"}}},
        {"relative program, good arguments",
         {{"Program", "bin/tool"}, {"ProgramArguments", arguments}},
         {}},
        {"an argument that is no text",
         {{"ProgramArguments", PlistList{"/usr/local/bin/tool", 7}}},
         {}},
        {"no arguments", {{"ProgramArguments", PlistList{}}}, {}},
        {"inside an application", {{"Program", "/Applications/Foo.app/Contents/MacOS/Foo"}}, {}},
        {"missing program", {{"Program", "/usr/local/bin/gone"}}, {}},
        {"nothing", {{"Label", "x"}}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        VolumeBuilder volume;
        volume.file("/usr/local/bin/tool", "").link("/usr/local/bin/link", "tool");
        volume.file("/Applications/Foo.app/Contents/MacOS/Foo", "");
        volume.plist("/Library/LaunchDaemons/x.PLIST", c.plist, PlistForm::binary);
        volume.plist("/Library/LaunchDaemons/x.plist.bak", c.plist);
        volume.file("/Library/LaunchDaemons/damaged.plist", "bplist00");
        volume.fifo("/Library/LaunchDaemons/fifo.plist");
        const auto targets = launchServiceTargets(volume.files(), SearchLocations({}));
        ASSERT_EQ(targets.size(), c.target ? 1U : 0U);
        if (c.target) {
            EXPECT_EQ(targets.front(), (FileTarget{Path(c.target->first), ItemKind::launchService,
                                                   c.target->second}));
        }
    }
}

} // namespace
} // namespace veridane
