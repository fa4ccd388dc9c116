#include "platform/NetworkLinks.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <sys/socket.h>

#include <cstring>

namespace veridane::test {
namespace {

sockaddr_storage addressOf(const char* text) {
    sockaddr_storage storage{};
    sockaddr_in four{};
    sockaddr_in6 six{};
    four.sin_family = AF_INET;
    six.sin6_family = AF_INET6;
    if (::inet_pton(AF_INET, text, &four.sin_addr) == 1)
        std::memcpy(&storage, &four, sizeof four);
    else if (::inet_pton(AF_INET6, text, &six.sin6_addr) == 1)
        std::memcpy(&storage, &six, sizeof six);
    return storage; // of no family for any other text
}

TEST(NetworkLinks, AWayOutHasALinkAndAnAddressFromOutside) {
    constexpr unsigned linked = IFF_UP | IFF_RUNNING;
    const struct {
        const char* what;
        unsigned flags;
        const char* address;
        bool isWayOut;
    } cases[] = {
        {"a private network", linked, "192.168.1.2", true},
        {"the next network", linked, "169.255.0.1", true},
        {"IPv6", linked | IFF_MULTICAST, "2001:db8::1", true},
        {"a site's own IPv6", linked, "fec0::1", true},
        {"this machine", linked | IFF_LOOPBACK, "10.0.0.1", false},
        {"no cable", IFF_UP, "192.168.1.2", false},
        {"switched off", IFF_RUNNING, "192.168.1.2", false},
        {"self-assigned", linked, "169.254.255.255", false},
        {"link-local", linked, "febf::1", false},
        {"of the hardware", linked, "", false},
    };
    for (const auto& c : cases) {
        auto address = addressOf(c.address);
        ifaddrs entry{};
        entry.ifa_flags = c.flags;
        EXPECT_FALSE(NetworkLinks::isWayOut(entry)) << "no address at all";
        entry.ifa_addr = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(NetworkLinks::isWayOut(entry), c.isWayOut) << c.what;
    }
}

TEST(NetworkLinks, NewsAreTakenWithoutWaitingForMore) {
    const Descriptor news = NetworkLinks::openNews();
    EXPECT_TRUE(!news || NetworkLinks::takeNews(news));
    int ends[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM, 0, ends), 0);
    const Descriptor reader(ends[0]), writer(ends[1]);
    for (const char* message : {"one", "another"})
        ::send(writer.get(), message, std::strlen(message), 0);
    EXPECT_TRUE(NetworkLinks::takeNews(reader));
    char byte = 0;
    EXPECT_LT(::recv(reader.get(), &byte, 1, MSG_DONTWAIT), 0) << "something is left";
    EXPECT_FALSE(NetworkLinks::takeNews(Descriptor()));
}

} // namespace
} // namespace veridane::test
