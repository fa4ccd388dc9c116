#include "platform/NetworkLinks.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <ifaddrs.h>
#include <net/if.h>

namespace veridane::test {
namespace {

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
