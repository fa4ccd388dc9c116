#include "platform/ProcessStart.h"

#include "support/VolumeTest.h"

#include <sys/wait.h>

#include <csignal>

namespace veridane {
namespace {

class ProcessStart : public test::VolumeTest {};

TEST_F(ProcessStart, HandsArgumentsOverAsTheyAreAndNoneOfOurSignalsAndSession) {
    sigset_t pipe, before;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, &before);
    const auto handler = std::signal(SIGPIPE, SIG_IGN);
    const std::string out = volume.hostPath("/out");
    constexpr const char* script =
        R"(printf '%s|' "$@" > "$0"; cut -d' ' -f6 /proc/self/stat >> "$0"; kill -PIPE $$)";
    const auto process = startProcess({"/bin/sh", "-c", script, out, "a b", "\xFF'\"", "", "-n"});
    std::signal(SIGPIPE, handler);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);

    ASSERT_TRUE(process);
    int status = 0;
    ASSERT_EQ(waitpid(*process, &status, 0), *process);
    EXPECT_EQ(test::textOf(out), "a b|\xFF'\"||-n|" + std::to_string(*process) + "\n");
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGPIPE) << status;
}

TEST_F(ProcessStart, TellsWhatCannotBeStarted) {
    volume.file("/plain", "");
    EXPECT_FALSE(startProcess({}));
    EXPECT_FALSE(startProcess({volume.hostPath("/missing")}));
    EXPECT_FALSE(startProcess({volume.hostPath("/plain")}));
}

} // namespace
} // namespace veridane
