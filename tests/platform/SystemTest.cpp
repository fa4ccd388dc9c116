#include "platform/Environment.h"
#include "platform/NetworkLinks.h"
#include "platform/ProcessStart.h"
#include "platform/UserDirectories.h"
#include "support/VolumeTest.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace veridane::test {
namespace {

class ProcessStart : public VolumeTest {};

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
    EXPECT_EQ(textOf(out), "a b|\xFF'\"||-n|" + std::to_string(*process) + "\n");
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGPIPE) << status;
}

TEST_F(ProcessStart, TellsWhatCannotBeStarted) {
    volume.file("/plain", "");
    EXPECT_FALSE(startProcess({}));
    EXPECT_FALSE(startProcess({volume.hostPath("/missing")}));
    EXPECT_FALSE(startProcess({volume.hostPath("/plain")}));
}

TEST(UserDirectories, AnAbsoluteVariableComesFirstAndTheUserListLast) {
    const std::string listed = ::getpwuid(::getuid())->pw_dir;
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"/data", "/home/a", "/data"},
        {"data", "/home/a", "/home/a/.local/share"},
        {"", "a", listed + "/.local/share"},
    };
    for (const auto& [data, home, expected] : cases) {
        ::setenv("XDG_DATA_HOME", data, 1);
        ::setenv("HOME", home, 1);
        EXPECT_EQ(userDataDirectory(), expected);
    }
}

TEST(Environment, AServiceIsWhatItsVariableHoldsWithoutSlashesAtTheEnd) {
    const std::pair<const char*, const char*> cases[] = {{"http://[::1]:80", "http://[::1]:80"},
                                                         {"http://a//", "http://a"},
                                                         {"", "https://built.in"}};
    for (const auto& [value, service] : cases) {
        ::setenv("VERIDANE_TRIED", value, 1);
        EXPECT_EQ(Environment::service("VERIDANE_TRIED", "https://built.in"), service);
    }
}

bool isWayOut(unsigned flags, const char* address) {
    sockaddr_in four{};
    sockaddr_in6 six{};
    four.sin_family = AF_INET;
    six.sin6_family = AF_INET6;
    ifaddrs entry{};
    entry.ifa_flags = flags;
    if (::inet_pton(AF_INET, address, &four.sin_addr) == 1)
        entry.ifa_addr = reinterpret_cast<sockaddr*>(&four);
    else if (::inet_pton(AF_INET6, address, &six.sin6_addr) == 1)
        entry.ifa_addr = reinterpret_cast<sockaddr*>(&six);
    return NetworkLinks::isWayOut(entry);
}

TEST(NetworkLinks, AWayOutHasALinkAndAnAddressFromOutside) {
    constexpr unsigned linked = IFF_UP | IFF_RUNNING;
    for (const char* given : {"192.168.1.2", "169.255.0.1", "2001:db8::1", "fec0::1"}) {
        EXPECT_TRUE(isWayOut(linked | IFF_MULTICAST, given)) << given;
        for (const unsigned flags : {linked | IFF_LOOPBACK, 0U | IFF_UP, 0U | IFF_RUNNING})
            EXPECT_FALSE(isWayOut(flags, given)) << given << " " << flags;
    }
    for (const char* selfAssigned : {"169.254.255.255", "fe80::1", "febf::1", "none"})
        EXPECT_FALSE(isWayOut(linked, selfAssigned)) << selfAssigned;
}

} // namespace
} // namespace veridane::test
