#include "platform/AtomicFile.h"

#include "platform/Descriptor.h"
#include "support/ProcessLimit.h"
#include "support/VolumeTest.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace veridane::test {
namespace {

namespace fs = std::filesystem;

class AtomicFile : public VolumeTest {
protected:
    std::string at(std::string_view path) const { return volume.hostPath(path); }
    std::string content(std::string_view path) const { return textOf(at(path)); }
    fs::perms permissions() const { return fs::status(at("/cache")).permissions(); }
    auto fileCount() const { return std::distance(fs::directory_iterator(volume.root()), {}); }
};

TEST_F(AtomicFile, AReaderOfTheOldFileKeepsItAndTheNewOneKeepsItsPermissions) {
    const mode_t oldMask = ::umask(027);
    EXPECT_EQ(writeFileAtomically(at("/cache"), "old"), std::nullopt);
    ::umask(oldMask);
    EXPECT_EQ(permissions(), fs::perms(0640));
    fs::permissions(at("/cache"), fs::perms(0606));
    std::ifstream reader(at("/cache"));
    EXPECT_EQ(writeFileAtomically(at("/cache"), std::string("n\0w", 3)), std::nullopt);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
    EXPECT_EQ(content("/cache"), std::string("n\0w", 3));
    EXPECT_EQ(permissions(), fs::perms(0606));
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(AtomicFile, ALinkStaysAndItsTargetIsWritten) {
    volume.folder("/folder").link("/second", "folder/target").link("/first", at("/second"));
    for (const char* text : {"through a dangling link", "through one that leads somewhere"}) {
        EXPECT_EQ(writeFileAtomically(at("/first"), text), std::nullopt);
        EXPECT_EQ(content("/folder/target"), text);
        EXPECT_TRUE(fs::is_symlink(at("/first")) && fs::is_symlink(at("/second")));
    }
    volume.link("/loop", "loop");
    EXPECT_EQ(writeFileAtomically(at("/loop"), "x"), "Too many levels of symbolic links");
}

TEST_F(AtomicFile, APipeIsWrittenToAndNotReplaced) {
    volume.fifo("/pipe");
    const Descriptor reader(::open(at("/pipe").c_str(), O_RDONLY | O_NONBLOCK));
    EXPECT_EQ(writeFileAtomically(at("/pipe"), "row"), std::nullopt);
    char buffer[8];
    EXPECT_EQ(::read(reader.get(), buffer, sizeof buffer), 3);
    EXPECT_TRUE(fs::is_fifo(at("/pipe")));
    EXPECT_EQ(writeFileAtomically("/dev/full", "row"), "No space left on device");
}

TEST_F(AtomicFile, AFailureLeavesTheOldFileAndNothingElse) {
    volume.file("/cache", "old");
    EXPECT_EQ(writeFileAtomically(at("/missing/cache"), "x"), "No such file or directory");
    EXPECT_EQ(writeFileAtomically(at("/cache/below"), "x"), "Not a directory");
    EXPECT_EQ(writeFileAtomically(volume.root(), "x"), "Is a directory");

    // A limit on file sizes stands for a disk that fills up half way.
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    {
        const ProcessLimit small(RLIMIT_FSIZE, 100);
        EXPECT_EQ(writeFileAtomically(at("/cache"), std::string(1000, 'x')), "File too large");
    }
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(content("/cache"), "old");
    EXPECT_EQ(fileCount(), 1);
}

} // namespace
} // namespace veridane::test
